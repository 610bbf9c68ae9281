#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "fault/Fault.h"
#include "fault/LogFile.h"
#include "fault/Story.h"
#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "printmanager/PrinterState.h"
#include "state/AppState.h"

namespace preview {
class frmPrintPreview;
}
namespace printmanager {
class frmPrintManager;
class frmPrintManagerSetup;
} // namespace printmanager
namespace wizard {
class frmMain;
}

namespace fault {

/// What a print manager left behind when it closed.
struct ManagerEnd {
    bool RestorePending = false;
    printmanager::PrinterState Restore;
};

/// A run-time error that nobody trapped, and the user's step that it ended.
struct UntrappedError {
    std::string Step;
    std::string Call;
};

/// What has come of a story.
struct Outcome {
    /// Promises that hold whatever fails, and were broken.
    std::vector<std::string> Complaints;
    std::vector<memory::ShownMessage> Messages;
    std::vector<UntrappedError> Untrapped;
    /// The printers' stored defaults at the end.
    std::map<std::string, memory::QueueDefaults> Defaults;
    std::vector<ManagerEnd> Managers;
    /// The user's step in which the call failed.
    std::string FaultStep;
    /// The call failed while a printer's defaults were being put back.
    bool FaultInRestore = false;
    std::vector<std::string> Log;
    /// Handles that are open when the story is over.
    std::size_t SpoolerHandles = 0;
    std::size_t RegistryHandles = 0;
};

/// The whole program on the memory platform, with a user who plays a story while one call fails. A modal form
/// does not stop the user, who goes on inside it.
class Machine {
  public:
    Machine(const Story& story, Fault& fault);
    ~Machine();

    /// The start, the story, a print without a fault and the end of the program.
    Outcome Play();

    /// The printer that a first opening loads.
    static constexpr const char* FirstPrinter = "Laser";
    /// The stored defaults of this printer before the start.
    static memory::QueueDefaults InstalledDefaults(const std::string& printer);

    // For the steps.
    wizard::frmMain& Main() { return *main_; }
    printmanager::frmPrintManager& Manager();
    preview::frmPrintPreview& Preview();
    printmanager::frmPrintManagerSetup& Setup() { return *setup_; }
    void OpenSetup();
    void Close(forms::Form& form);
    void TurnWheel(forms::Form& form, std::int16_t delta);
    /// Time enough for each timer that runs.
    void PassTime();

  private:
    void FillStore();
    void Observe(const memory::Event& event);
    void ObserveStore(const std::string& name, const std::string& value);
    void ObservePaper(const memory::Event& event);
    void ObserveYield();
    void ObserveUnload(const std::string& form);
    void NoteFault();
    void PlaySteps(const std::vector<Step>& steps);
    bool PlayNext(forms::Form& front);
    void PlayStep(const Step& step);
    void ExpectAtRest(forms::Form& front);
    void TakeOutcome();
    void ExpectStoreWhole();
    void ExpectGone();
    forms::Form* OpenForm(const std::string& name) const;
    void Complain(const std::string& complaint);

    const Story& story_;
    Fault& fault_;
    Outcome outcome_;
    std::map<std::string, std::string> stored_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
    std::vector<std::string> path_;
    std::vector<ManagerEnd> managers_;
    bool paperAsked_ = false;
    std::size_t documents_ = 0;
    bool hourglassExcused_ = false;
    int yields_ = 0;

    LogFile log_;
    memory::MemoryPlatform memory_;
    forms::Session session_{memory_.desktop};
    state::AppState state_;
    std::unique_ptr<wizard::frmMain> main_;
    std::unique_ptr<printmanager::frmPrintManagerSetup> setup_;
};

} // namespace fault
