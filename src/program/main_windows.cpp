// The program on the Windows desktop.
#include "platform/forms/Session.h"
#include "platform/windows/RunGuarded.h"
#include "platform/windows/WindowsPlatform.h"
#include "wizard/AppState.h"
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
