#pragma once

#include <memory>
#include <string>

#include "RecordWriter.h"
#include "Stage.h"
#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "state/AppState.h"

namespace printmanager {
class frmPrintManagerSetup;
}
namespace wizard {
class frmMain;
}

namespace scenario {

/// The machine and the program that a script plays with.
class World {
  public:
    World(RecordWriter& record, const StageMaker& makeStage);
    ~World();

    RecordWriter& record;
    memory::MemoryPlatform memory;
    std::unique_ptr<Stage> stage;
    forms::Session session{stage->Services().Desktop};
    state::AppState state;

    /// The program's start-up. The machine keeps what an earlier run left in it.
    void Start();

    /// A loaded form by its name; ScriptError if there is none.
    forms::Form& FormNamed(const std::string& name) const;

    /// Shows, modally, a form that no command of the program opens.
    void Open(const std::string& name);

    /// The form that takes the user's input; ScriptError if there is none.
    forms::Form& FrontForm() const;

  private:
    std::unique_ptr<wizard::frmMain> main_;
    std::unique_ptr<printmanager::frmPrintManagerSetup> setup_;
};

/// Key of the program's settings below the current user's root.
inline constexpr const char* SettingsPath = R"(Software\Ondor\Tarvik\CurrentVersion)";

} // namespace scenario
