// The program on the Windows desktop.
#include "desktop/windows/RunGuarded.h"
#include "desktop/windows/WindowsPlatform.h"
#include "forms/Session.h"
#include "machine/Platform.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

int main() {
    return desktop::windows::RunGuarded([] {
        desktop::windows::WindowsPlatform platform;
        state::AppState state;
        forms::Session session(platform.Services().Desktop);
        wizard::frmMain form(session, platform.Services(), state);
        session.Dispatch([&] { form.Show(); });
        platform.Run();
    });
}
