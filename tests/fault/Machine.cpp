#include "fault/Machine.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "CommandLine.h"
#include "PlayLine.h"
#include "forms/Form.h"
#include "forms/Timer.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/frmMain.h"

namespace fault {

namespace {

constexpr const char* WizardForm = "frmMain";

/// More than any run needs: a run that goes beyond hangs.
constexpr int MostYields = 200000;
/// The machine is fast: a timer comes round once in so many yields.
constexpr int YieldsPerTick = 100;

struct Setting {
    const char* Name;
    const char* Value;
};

/// What the program may write into the store.
constexpr Setting WritableSettings[] = {
    {"PrinterOrientation", "1"}, {"GMUFontSize", "12"},      {"MatrixPrinter", "0"},  {"MatrixPrinter", "1"},
    {"CurrentPrinter", "Laser"}, {"CurrentPrinter", "Inkt"}, {"PrinterInit", "2001"},
};

bool MayWrite(const std::string& name, const std::string& value) {
    return std::any_of(std::begin(WritableSettings), std::end(WritableSettings),
                       [&](const Setting& row) { return name == row.Name && value == row.Value; });
}

std::string TextOf(const memory::Event& event, std::string_view field) {
    for (const memory::EventField& candidate : event.Fields) {
        if (candidate.Name == field) {
            return std::get<std::string>(candidate.Value);
        }
    }
    return {};
}

} // namespace

Machine::Machine(const Story& story, Fault& fault) : story_(story), fault_(fault), log_(fault) {
    Prepare(Settings());
    Prepare(story.Before);
    printers_ = memory_.printers.Count();
    outcome_.DefaultsBefore = Defaults();
    memory_.recorder.Sink = [this](const memory::Event& event) { Observe(event); };
    memory_.recorder.ShouldFail = [this](std::string_view call) {
        // Without the wizard's own window there is no program that could survive.
        const bool isFirstWindow = call == CallCreateWindow && OpenForm(WizardForm) == nullptr;
        return !isFirstWindow && fault_.Strikes(call);
    };
    memory_.desktop.OnModal = [this](forms::Form& form) { return PlayNext(form); };
    memory_.desktop.OnYield = [this] { ObserveYield(); };
    fault_.OnStrike = [this] { NoteFault(); };
}

Machine::~Machine() {
    fault_.OnStrike = nullptr;
}

void Machine::Prepare(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        scenario::PlayLine(world_, line);
        scenario::CommandLine words(line);
        if (words.Word("command") == "set") {
            const std::string name = words.Word("name");
            stored_[name] = words.Word("text");
        }
    }
}

std::map<std::string, memory::QueueDefaults> Machine::Defaults() {
    std::map<std::string, memory::QueueDefaults> defaults;
    for (int i = 0; i < printers_; ++i) {
        const memory::PrintQueue& queue = memory_.printers.Queue(i);
        defaults[queue.Name] = queue.Defaults;
    }
    return defaults;
}

// What the program does.

void Machine::Complain(const std::string& complaint) {
    outcome_.Complaints.push_back((path_.empty() ? "" : path_.back() + ": ") + complaint);
}

void Machine::NoteFault() {
    outcome_.FaultStep = path_.empty() ? "start" : path_.back();
    outcome_.FaultInRestore = memory_.desktop.LockedWindow() != 0;
}

void Machine::Observe(const memory::Event& event) {
    if (event.Kind == "error") {
        outcome_.Untrapped.push_back({path_.empty() ? "start" : path_.back(), fault_.Call()});
        hourglassExcused_ = true;
    } else if (event.Kind == "refused") {
        Complain("the form refuses to close");
    } else if (event.Kind == "store") {
        ObserveStore(TextOf(event, "name"), TextOf(event, "value"));
    } else if (event.Kind == "unload") {
        ObserveUnload(TextOf(event, "form"));
    } else if (event.Kind == "text" || event.Kind == "line" || event.Kind == "end") {
        ObservePaper(event);
    }
}

void Machine::ObserveStore(const std::string& name, const std::string& value) {
    if (!MayWrite(name, value)) {
        Complain("writes " + name + " = " + value);
    }
}

void Machine::ObservePaper(const memory::Event& event) {
    if (TextOf(event, "surface") != "printer") {
        return;
    }
    if (!paperAsked_) {
        Complain("paper that nobody asked for");
        paperAsked_ = true;
    }
    documents_ += event.Kind == "end" ? 1U : 0U;
}

void Machine::ObserveYield() {
    if (++yields_ > MostYields) {
        throw std::logic_error("the program hangs");
    }
    if (yields_ % YieldsPerTick == 0) {
        PassTime();
    }
}

void Machine::ObserveUnload(const std::string& form) {
    if (form == "frmPrintManager") {
        managers_.push_back({Manager()->blnRestorePending, Manager()->RestoreState});
    }
}

// What the user does.

void Machine::PassTime() {
    const std::vector<forms::Form*> open = world_.session.OpenForms();
    for (const forms::Form* form : open) {
        for (forms::Timer* timer : form->ControlsOf<forms::Timer>()) {
            if (timer->Enabled() && !fault_.Strikes(CallTick)) {
                timer->Tick();
            }
        }
    }
}

forms::Form* Machine::OpenForm(const std::string& name) const {
    const std::vector<forms::Form*>& open = world_.session.OpenForms();
    const auto found = std::find_if(open.begin(), open.end(), [&](const forms::Form* form) {
        return form->Name() == name && form->Visible();
    });
    return found == open.end() ? nullptr : *found;
}

wizard::frmMain* Machine::Main() const {
    return static_cast<wizard::frmMain*>(OpenForm(WizardForm));
}

const printmanager::frmPrintManager* Machine::Manager() const {
    const wizard::frmMain* main = Main();
    return main == nullptr ? nullptr : main->PrintManager();
}

void Machine::PlaySteps(const std::vector<Step>& steps) {
    steps_ = steps;
    next_ = 0;
    while (Main() != nullptr && PlayNext(*Main())) {
    }
}

/// A step of the form in front is played; one of a form that lies below waits until the user has closed the
/// form in front; one of a form that has not come up is left out. False if the form in front is to close.
bool Machine::PlayNext(forms::Form& front) {
    ExpectAtRest(front);
    while (next_ < steps_.size()) {
        const Step& step = steps_[next_];
        if (step.Form == front.Name()) {
            ++next_;
            PlayStep(step);
            return true;
        }
        if (OpenForm(step.Form) != nullptr) {
            return false;
        }
        ++next_;
    }
    return false;
}

void Machine::PlayStep(const Step& step) {
    path_.push_back(step.Line);
    paperAsked_ = step.Prints;
    PassTime();
    scenario::PlayLine(world_, step.Line);
    if (record_.str().find(R"("event":"refused")") != std::string::npos) {
        Complain("the form refuses to close");
    }
    record_.str("");
    path_.pop_back();
}

/// The command before is over, or the form has just come up.
void Machine::ExpectAtRest(forms::Form& front) {
    if (memory_.desktop.MousePointer() == forms::PointerDefault) {
        hourglassExcused_ = false;
    } else if (!hourglassExcused_) {
        Complain("the hourglass stays on " + front.Name());
    }
    if (memory_.desktop.LockedWindow() != 0) {
        Complain("a window stays locked");
    }
    const printmanager::frmPrintManager* manager = Manager();
    if (manager == &front && manager->Loaded() &&
        (manager->blnBusy || manager->blnClosing || manager->blnLoading || manager->blnFillingPrinters)) {
        Complain("the manager stays busy");
    }
    if (front.Name() == WizardForm && (manager != nullptr || world_.state.PrintManagerOpen)) {
        Complain("the wizard stays locked");
    }
}

// The end.

Outcome Machine::Play() {
    try {
        scenario::PlayLine(world_, "start");
        PlaySteps(story_.Steps);
        TakeOutcome();
        fault_.Disarm();

        documents_ = 0;
        PlaySteps(PrintReport());
        if (documents_ != (printers_ > 0 ? 1U : 0U)) {
            Complain("prints no more");
        }
    } catch (const std::logic_error& error) {
        Complain(error.what());
    }
    ExpectStoreWhole();
    ExpectGone();
    return outcome_;
}

void Machine::TakeOutcome() {
    outcome_.Defaults = Defaults();
    outcome_.Managers = managers_;
    outcome_.Messages = memory_.desktop.Messages();
    outcome_.Log = LogFile::Lines();
    outcome_.SpoolerHandles = memory_.spooler.OpenHandles();
    outcome_.RegistryHandles = memory_.registry.OpenHandles();
}

void Machine::ExpectStoreWhole() {
    for (const auto& [name, value] : stored_) {
        const std::string now = memory_.registry.Text(scenario::SettingsPath, name).value_or("(missing)");
        if (now != value && !MayWrite(name, now)) {
            Complain("the store holds " + name + " = " + now);
        }
    }
}

void Machine::ExpectGone() {
    forms::Form* main = Main();
    if (main == nullptr || !main->UserClose() || !world_.session.OpenForms().empty()) {
        Complain("the wizard refuses to close");
    }
    if (memory_.bitmaps.Alive() != 0) {
        Complain("pages stay in memory");
    }
}

} // namespace fault
