// The program on the Linux desktop.
#include "platform/forms/Session.h"
#include "platform/qt/QtPlatform.h"
#include "wizard/AppState.h"
#include "wizard/frmMain.h"

int main(int argc, char** argv) {
    platform::qt::QtPlatform platform(argc, argv);
    wizard::AppState state;
    forms::Session session(platform.Services().Desktop);
    wizard::frmMain form(session, platform.Services(), state);
    session.Dispatch([&] { form.Show(); });
    platform.Run();
    return 0;
}
