#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "composition/RunHost.h"
#include "machine/Printer.h"
#include "preview/PrintPreview.h"

namespace composition {
class PrinterSurface;
}
namespace forms {
class Form;
}
namespace machine {
struct Platform;
}
namespace printmanager {
class frmPrintManager;
}
namespace state {
struct AppState;
}

/// What the forms that print have in common: each shows a print manager, which calls it back for each
/// document.
namespace wizard {

/// Where a form keeps its print manager; nothing while there is none.
using ManagerPlace = std::unique_ptr<printmanager::frmPrintManager>;

/// Offers these documents of `caller` in a new print manager, until the user leaves it.
void ShowManager(ManagerPlace& manager, forms::Form& caller, machine::Platform& platform,
                 state::AppState& state, std::span<const char* const> titles);

/// Lets nothing of a document be left at the end of its run: a run that broke off must not become the
/// beginning of the next one.
class WholeDocument {
  public:
    explicit WholeDocument(machine::Printer& printer) : printer_(printer) {}
    ~WholeDocument() { printer_.Abandon(); }
    WholeDocument(const WholeDocument&) = delete;
    WholeDocument& operator=(const WholeDocument&) = delete;

  private:
    machine::Printer& printer_;
};

/// What a run asks of the manager and of the preview. It has no number of forms to ask for.
class PrintHost : public composition::RunHost {
  public:
    PrintHost(const ManagerPlace& manager, forms::Form& caller, machine::Platform& platform,
              state::AppState& state, composition::PrinterSurface& printer);

    std::string CountText() override { return {}; }
    void SetCountText(const std::string& /*text*/) override {}
    void UpdatePercentage(std::int16_t iNewPerc) override;
    void OpenPreview(std::int16_t fase) override { preview_.OpenPreview(fase); }
    void ShowPreview() override { preview_.Show(); }

  private:
    const ManagerPlace& manager_;
    preview::PrintPreview preview_;
};

} // namespace wizard
