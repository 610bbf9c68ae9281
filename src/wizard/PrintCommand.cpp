#include "wizard/PrintCommand.h"

#include <algorithm>

#include "forms/Form.h"
#include "printmanager/frmPrintManager.h"
#include "state/AppState.h"

namespace wizard {

namespace {

/// Takes the manager away at the end of the command, also where it could not be shown or its closing broke
/// off halfway: the wizard must not stay locked.
class ManagerGone {
  public:
    ManagerGone(ManagerPlace& manager, state::AppState& state) : manager_(manager), state_(state) {}
    ~ManagerGone() {
        manager_.reset();
        state_.PrintManagerOpen = false;
    }
    ManagerGone(const ManagerGone&) = delete;
    ManagerGone& operator=(const ManagerGone&) = delete;

  private:
    ManagerPlace& manager_;
    state::AppState& state_;
};

} // namespace

void ShowManager(ManagerPlace& manager, forms::Form& caller, machine::Platform& platform,
                 state::AppState& state, std::span<const char* const> titles) {
    std::fill(state.DocumentTitle.begin() + 1, state.DocumentTitle.end(), std::string());
    std::copy(titles.begin(), titles.end(), state.DocumentTitle.begin() + 1);
    state.CallerFormName = caller.Name();

    const ManagerGone gone(manager, state);
    manager = std::make_unique<printmanager::frmPrintManager>(caller.GetSession(), platform, state);
    manager->ShowModal();
}

PrintHost::PrintHost(const ManagerPlace& manager, forms::Form& caller, machine::Platform& platform,
                     state::AppState& state, composition::PrinterSurface& printer)
    : manager_(manager), preview_(caller.GetSession(), platform, state, printer) {}

void PrintHost::UpdatePercentage(std::int16_t iNewPerc) {
    if (manager_ != nullptr) {
        manager_->UpdatePercentage(iNewPerc);
    }
}

} // namespace wizard
