// The program on the Linux desktop.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtPlatform.h"
#include "forms/Session.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

namespace {

int Run(desktop::qt::QtPlatform& platform) {
    state::AppState state;
    forms::Session session(platform.Services().Desktop);
    wizard::frmMain form(session, platform.Services(), state);
    session.Dispatch([&] { form.Show(); });
    platform.Run();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    try {
        desktop::qt::QtPlatform platform(argc, argv);
        return desktop::qt::Guarded(EXIT_FAILURE, [&] { return Run(platform); });
    } catch (const std::exception& error) { // there is no desktop yet to tell it on
        std::fprintf(stderr, "drukkeuring: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
