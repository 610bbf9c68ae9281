// The program on the Windows desktop.
#include "forms/Session.h"
#include "desktop/windows/RunGuarded.h"
#include "desktop/windows/WindowsPlatform.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

int main() {
    return platform::windows::RunGuarded([] {
        platform::windows::WindowsPlatform platform;
        wizard::AppState state;
        forms::Session session(platform.Services().Desktop);
        wizard::frmMain form(session, platform.Services(), state);
        session.Dispatch([&] { form.Show(); });
        platform.Run();
    });
}
