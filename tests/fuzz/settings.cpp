// The program with settings that nobody means: it starts, goes through its pages, prints and previews,
// closes, and leaves the settings of others alone.
//
// A seed has a setting to a line: NAME=TEXT, NAME#=NUMBER, or NAME!=BYTES for a text without its closing NUL.
// A name may hold the path of a key below the program's.
#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "Input.h"
#include "Require.h"
#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/frmMain.h"

namespace {

using std::string;
using std::string_view;

const string SettingsPath = R"(Software\Ondor\Tarvik\CurrentVersion)";

/// What the program may write; all else belongs to the main application.
constexpr std::array<string_view, 4> OwnSettings = {"PrinterOrientation", "GMUFontSize", "CurrentPrinter",
                                                    "MatrixPrinter"};

void Put(memory::MemoryRegistry& registry, string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == string_view::npos) {
        return;
    }
    const string value = fuzz::WithoutEscapes(line.substr(equals + 1));
    string name(line.substr(0, equals));
    const char kind = name.empty() ? ' ' : name.back();
    if (kind == '#' || kind == '!') {
        name.pop_back();
    }
    const std::size_t slash = name.rfind('\\');
    const string key = slash == string::npos ? SettingsPath : SettingsPath + '\\' + name.substr(0, slash);
    name.erase(0, slash == string::npos ? 0 : slash + 1);
    if (kind == '#') {
        registry.SetNumber(key, name, fuzz::Input(value).Take<std::uint32_t>());
    } else if (kind == '!') {
        registry.SetBytes(key, name, machine::RegSz, value);
    } else {
        registry.SetText(key, name, value);
    }
}

/// What the user does while a window alone takes input. False: closes it.
class User {
  public:
    bool Do(forms::Form& form) {
        auto* const manager = dynamic_cast<printmanager::frmPrintManager*>(&form);
        if (manager == nullptr || step_ == LastStep) {
            return false;
        }
        const int document = ++step_ / 3;
        switch (step_ % 3) {
        case 0:
            manager->lstAfdrukken.UserPick(document % 3);
            manager->cmdPrint.UserClick();
            break;
        case 1:
            manager->cmdPrintVoorbeeld.UserClick();
            break;
        default:
            manager->cmdDetails.UserClick();
            manager->cboPrinterSelect(document % 4).UserPick(document % 2);
            manager->chkMatrixPrinter.UserClick();
        }
        REQUIRE(!manager->blnBusy);
        return true;
    }

  private:
    static constexpr int LastStep = 12;
    int step_ = 0;
};

void WalkThePages(wizard::frmMain& form) {
    for (const int box : {74, 70, 71, 72, 73, 74, 70}) {
        form.MoveFocus(form.UserText(box));
    }
    form.Verder.UserClick();
    form.optProcedure(0).UserClick();
    form.Verder.UserClick();
    form.optTestpartij(1).UserClick();
    form.Verder.UserClick();
    form.UserText(0).SetText("4");
    form.cmdPrinten.UserClick();
    form.Terug.UserClick();
    form.Terug.UserClick();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    memory::MemoryPlatform memory;
    memory.clock.Set({.Year = 2026, .Month = 3, .Day = 14, .Hour = 12, .Minute = 0, .Second = 0});
    memory.random.Seed(1);
    memory.registry.CreateKey(SettingsPath);
    for (fuzz::Input lines(data, size); !lines.Empty();) {
        Put(memory.registry, lines.Line());
    }
    memory.registry.OnWrite = [](const string& path, const string& name, const string&, bool) {
        REQUIRE(path == SettingsPath);
        REQUIRE(std::find(OwnSettings.begin(), OwnSettings.end(), name) != OwnSettings.end());
    };
    memory.recorder.Sink = [](const memory::Event& event) { REQUIRE(event.Kind != "error"); };
    for (const char* name : {"Laser", "Inkt"}) {
        memory::PrintQueue queue;
        queue.Name = name;
        memory.InstallPrinter(queue);
    }
    User user;
    memory.desktop.OnModal = [&user](forms::Form& form) { return user.Do(form); };

    state::AppState state;
    forms::Session session(memory.desktop);
    wizard::frmMain form(session, memory.Services(), state);
    form.Show();
    WalkThePages(form);
    REQUIRE(!state.PrintManagerOpen);
    REQUIRE(form.UserClose());
    REQUIRE(session.OpenForms().empty());
    return 0;
}
