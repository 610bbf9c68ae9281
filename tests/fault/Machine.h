#pragma once

#include <cstddef>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "MemoryStage.h"
#include "RecordWriter.h"
#include "World.h"
#include "fault/Fault.h"
#include "fault/LogFile.h"
#include "fault/Story.h"
#include "memory/MemoryPlatform.h"
#include "printmanager/PrinterState.h"

namespace printmanager {
class frmPrintManager;
}
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
    /// The printers' stored defaults before the start, and at the end.
    std::map<std::string, memory::QueueDefaults> DefaultsBefore;
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

  private:
    void Prepare(const std::vector<std::string>& lines);
    void Observe(const memory::Event& event);
    void ObserveStore(const std::string& name, const std::string& value);
    void ObservePaper(const memory::Event& event);
    void ObserveYield();
    void ObserveUnload(const std::string& form);
    void NoteFault();
    void PassTime();
    void PlaySteps(const std::vector<Step>& steps);
    bool PlayNext(forms::Form& front);
    void PlayStep(const Step& step);
    void ExpectAtRest(forms::Form& front);
    void TakeOutcome();
    void ExpectStoreWhole();
    void ExpectGone();
    forms::Form* OpenForm(const std::string& name) const;
    wizard::frmMain* Main() const;
    const printmanager::frmPrintManager* Manager() const;
    std::map<std::string, memory::QueueDefaults> Defaults();
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
    std::ostringstream record_;
    scenario::RecordWriter writer_{record_};
    scenario::World world_{writer_, scenario::MakeMemoryStage};
    memory::MemoryPlatform& memory_ = world_.memory;
    int printers_ = 0;
};

} // namespace fault
