#include "fault/Machine.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "forms/Form.h"
#include "forms/Timer.h"
#include "preview/frmPrintPreview.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "wizard/frmMain.h"

namespace fault {

namespace {

constexpr const char* Settings = "Software\\Ondor\\Tarvik\\CurrentVersion";

/// More than any run needs: a run that goes beyond hangs.
constexpr int MostYields = 200000;
/// The machine is fast: a timer comes round once in so many yields.
constexpr int YieldsPerTick = 100;

struct Setting {
    const char* Name;
    const char* Value;
};

/// A user with all that a form can carry.
constexpr Setting UserSettings[] = {
    {"AcceptgiroType", "1"},
    {"GMUContractVorm", "32"},
    {"GMUVerkeer", "1"},
    {"GMUFontName", "OCR-B"},
    {"GMUFontSize", "10"},
    {"GMUServiceNr", "123"},
    {"GMUCode", "4"},
    {"PrinterOrientation", "2"},
    {"UseSpecificPrinterSettings", "0"},
    {"PrinterOverrulePaperSize", "1"},
    {"IncassantBegunstigde", "Stichting Voorbeeld"},
    {"IncassantAdres", "Dorpsstraat 1"},
    {"IncassantPostCode", "1234 AB"},
    {"IncassantWoonplaats", "Ons Dorp"},
    {"IncassantBankGiro", "NL91ABNA0417164300"},
    {"IncassantAfdrukken", "1"},
    {"OCRLinks0", "1,00"},
    {"OCRTop0", "-0,50"},
    {"AcceptGiroLinks1", "2,00"},
    {"AcceptGiroNAWTop2", "0,25"},
    {"AcceptFontSizeNAW1", "9"},
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

struct Installed {
    const char* Name;
    memory::QueueDefaults Defaults;
};

/// The first one's defaults are not the first entries of its lists, which a failing driver falls back on.
constexpr Installed InstalledPrinters[] = {
    {Machine::FirstPrinter, {.Orientation = 1, .PaperSize = 5, .DefaultSource = 1, .Copies = 1}},
    {"Inkt", {.Orientation = 2, .PaperSize = 9, .DefaultSource = 15, .Copies = 1}},
};

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
    FillStore();
    if (story.HasPrinters) {
        for (const Installed& printer : InstalledPrinters) {
            memory_.InstallPrinter({.Name = printer.Name, .Defaults = printer.Defaults});
        }
    }
    memory_.clock.Set(
        {.Year = 2026, .Month = 3, .Day = 14, .Hour = 12, .Minute = 0, .Second = 0, .Millisecond = 0});
    memory_.random.Seed(1);
    memory_.recorder.Sink = [this](const memory::Event& event) { Observe(event); };
    memory_.recorder.ShouldFail = [this](std::string_view call) {
        // Without the wizard's own window there is no program that could survive.
        const bool isFirstWindow = call == CallCreateWindow && !main_->Visible();
        return !isFirstWindow && fault_.Strikes(call);
    };
    memory_.desktop.OnModal = [this](forms::Form& form) { return PlayNext(form); };
    memory_.desktop.OnYield = [this] { ObserveYield(); };
    fault_.OnStrike = [this] { NoteFault(); };
}

Machine::~Machine() {
    fault_.OnStrike = nullptr;
}

void Machine::FillStore() {
    for (const Setting& setting : UserSettings) {
        stored_[setting.Name] = setting.Value;
    }
    if (!story_.KnownPrinter.empty()) {
        stored_["CurrentPrinter"] = story_.KnownPrinter;
    }
    for (const auto& [name, value] : stored_) {
        memory_.registry.SetText(Settings, name, value);
    }
}

memory::QueueDefaults Machine::InstalledDefaults(const std::string& printer) {
    const auto* const found = std::find_if(std::begin(InstalledPrinters), std::end(InstalledPrinters),
                                           [&](const Installed& row) { return printer == row.Name; });
    return found == std::end(InstalledPrinters) ? memory::QueueDefaults{} : found->Defaults;
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
        managers_.push_back({Manager().blnRestorePending, Manager().RestoreState});
    }
}

// What the user does.

void Machine::PassTime() {
    const std::vector<forms::Form*> open = session_.OpenForms();
    for (const forms::Form* form : open) {
        for (forms::Control* control : form->Controls()) {
            if (control->Kind() == forms::ControlKind::Timer && control->Enabled() &&
                !fault_.Strikes(CallTick)) {
                static_cast<forms::Timer*>(control)->Tick();
            }
        }
    }
}

forms::Form* Machine::OpenForm(const std::string& name) const {
    const std::vector<forms::Form*>& open = session_.OpenForms();
    const auto found = std::find_if(open.begin(), open.end(), [&](const forms::Form* form) {
        return form->Name() == name && form->Visible();
    });
    return found == open.end() ? nullptr : *found;
}

printmanager::frmPrintManager& Machine::Manager() {
    return *main_->PrintManager();
}

preview::frmPrintPreview& Machine::Preview() {
    return static_cast<preview::frmPrintPreview&>(*OpenForm("frmPrintPreview"));
}

void Machine::OpenSetup() {
    setup_ = std::make_unique<printmanager::frmPrintManagerSetup>(session_, memory_.Services(), state_);
    session_.Dispatch([this] { setup_->ShowModal(); });
    setup_.reset();
}

void Machine::Close(forms::Form& form) {
    if (!form.UserClose()) {
        Complain("the form refuses to close");
    }
}

void Machine::TurnWheel(forms::Form& form, std::int16_t delta) {
    memory_.desktop.Windows().SendWheel(form.hWnd(), delta);
}

void Machine::PlaySteps(const std::vector<Step>& steps) {
    steps_ = steps;
    next_ = 0;
    while (PlayNext(*main_)) {
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
    path_.push_back(step.Name);
    paperAsked_ = step.Prints;
    PassTime();
    step.Act(*this);
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
    const printmanager::frmPrintManager* manager = main_->PrintManager();
    if (manager == &front && manager->Loaded() &&
        (manager->blnBusy || manager->blnClosing || manager->blnLoading || manager->blnFillingPrinters)) {
        Complain("the manager stays busy");
    }
    if (&front == main_.get() && (manager != nullptr || state_.PrintManagerOpen)) {
        Complain("the wizard stays locked");
    }
}

// The end.

Outcome Machine::Play() {
    main_ = std::make_unique<wizard::frmMain>(session_, memory_.Services(), state_);
    try {
        session_.Dispatch([this] { main_->Show(); });
        PlaySteps(story_.Steps);
        TakeOutcome();
        fault_.Disarm();

        documents_ = 0;
        PlaySteps(PrintReport());
        if (documents_ != (story_.HasPrinters ? 1U : 0U)) {
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
    for (const Installed& printer : InstalledPrinters) {
        if (const memory::PrintQueue* queue = memory_.printers.Find(printer.Name)) {
            outcome_.Defaults[queue->Name] = queue->Defaults;
        }
    }
    outcome_.Managers = managers_;
    outcome_.Messages = memory_.desktop.Messages();
    outcome_.Log = LogFile::Lines();
    outcome_.SpoolerHandles = memory_.spooler.OpenHandles();
    outcome_.RegistryHandles = memory_.registry.OpenHandles();
}

void Machine::ExpectStoreWhole() {
    for (const auto& [name, value] : stored_) {
        const std::string now = memory_.registry.Text(Settings, name).value_or("(missing)");
        if (now != value && !MayWrite(name, now)) {
            Complain("the store holds " + name + " = " + now);
        }
    }
}

void Machine::ExpectGone() {
    if (!main_->UserClose() || !session_.OpenForms().empty()) {
        Complain("the wizard refuses to close");
    }
    if (memory_.bitmaps.Alive() != 0) {
        Complain("pages stay in memory");
    }
}

} // namespace fault
