#include "World.h"

#include "ScriptError.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "wizard/frmMain.h"

namespace scenario {

World::World(RecordWriter& recordWriter, const StageMaker& makeStage)
    : record(recordWriter), stage(makeStage(memory)) {
    memory.recorder.Sink = [this](const memory::Event& event) { record.Write(event); };
    memory.registry.CreateKey(SettingsPath);
}

World::~World() = default;

void World::Start() {
    if (main_ != nullptr && main_->Loaded()) {
        throw ScriptError("the program is running");
    }
    state = state::AppState();
    memory.printer.TakeDefault();
    main_ = std::make_unique<wizard::frmMain>(session, stage->Services(), state);
    session.Dispatch([this] { main_->Show(); });
}

forms::Form& World::FormNamed(const std::string& name) const {
    for (forms::Form* form : session.OpenForms()) {
        if (form->Name() == name) {
            return *form;
        }
    }
    throw ScriptError("no such form is loaded: " + name);
}

void World::Open(const std::string& name) {
    if (name != "frmPrintManagerSetup") {
        throw ScriptError("no form to open: " + name);
    }
    if (setup_ != nullptr && setup_->Loaded()) {
        throw ScriptError("the form is open: " + name);
    }
    setup_ = std::make_unique<printmanager::frmPrintManagerSetup>(session, stage->Services(), state);
    session.Dispatch([this] { setup_->ShowModal(); });
}

forms::Form& World::FrontForm() const {
    if (forms::Form* modal = session.ModalForm()) {
        return *modal;
    }
    for (forms::Form* form : session.OpenForms()) {
        if (form->Visible()) {
            return *form;
        }
    }
    throw ScriptError("no form is on show");
}

} // namespace scenario
