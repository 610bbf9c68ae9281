#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "CompositionTest.h"
#include "composition/DocumentRun.h"
#include "forms/Desktop.h"
#include "support/StoredSettings.h"

namespace composition {

// The documents by their numbers: what holds for each of them is tested by these lists.
inline const Numbers AllDocuments{DocumentTestForms, DocumentNameList, DocumentCalibration};
/// Those that build on ListSteps.
inline const Numbers ListDocuments{DocumentNameList, DocumentCalibration};
inline constexpr std::int16_t NoDocument = 0;

/// Whole documents, with the order in which a run asks machine and forms for what it needs: "mouse 11",
/// "settings" for any number of them read in a row, "yield" as the printer is opened, and the calls of the
/// host.
class DocumentTest : public CompositionTest {
  protected:
    DocumentTest() {
        memory.desktop.TraceYields = true;
        memory.recorder.Sink = [this](const memory::Event& event) {
            Happens(event.Kind == "mouse" ? "mouse " + std::to_string(memory.desktop.MousePointer())
                                          : event.Kind);
        };
        memory.recorder.ShouldFail = [this](std::string_view call) {
            if (call == "RegQueryValueExA" && (happened.empty() || happened.back() != "settings")) {
                Happens("settings");
            }
            return false;
        };
        host.OnCall = [this](const std::string& call) { Happens(call); };
    }

    /// Composes a document under the settings that `state` has.
    void Compose(const DocumentJob& job) {
        support::StoreRunSettings(memory.registry, state);
        ComposeDocument(state, services, host.printer, host, job);
    }
    void Print(std::int16_t iMethod, std::int16_t copies = 1) {
        Compose({.iMethod = iMethod, .num_copies = copies, .blnPrintPreview = false});
    }
    void Preview(std::int16_t iMethod) {
        Compose({.iMethod = iMethod, .num_copies = 1, .blnPrintPreview = true});
    }

    std::vector<std::string> happened;
    /// Called for each entry of `happened`.
    std::function<void(const std::string& what)> OnHappening;

  private:
    void Happens(const std::string& what) {
        happened.push_back(what);
        if (OnHappening) {
            OnHappening(what);
        }
    }
};

} // namespace composition
