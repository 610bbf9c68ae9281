#include "forms/StatusBar.h"

#include "base/RuntimeError.h"

namespace forms {

const StatusPanel& StatusBar::Panel(int number) const {
    if (number < 1 || number > PanelCount()) {
        throw base::SubscriptOutOfRange();
    }
    return panels_[static_cast<std::size_t>(number - 1)];
}

void StatusBar::SetPanelText(int number, const std::string& text) {
    if (Panel(number).Text != text) {
        panels_[static_cast<std::size_t>(number - 1)].Text = text;
        Changed(Aspect::Items);
    }
}

void StatusBar::SetPanelWidth(int number, double width) {
    if (Panel(number).Width != width) {
        panels_[static_cast<std::size_t>(number - 1)].Width = width;
        Changed(Aspect::Items);
    }
}

void StatusBar::SetFormEnd(double end) {
    if (formEnd_ != end) {
        formEnd_ = end;
        Changed(Aspect::Geometry);
    }
}

double StatusBar::LeastHeight() const {
    constexpr double share = 0.8;
    return formEnd_ ? share * Height() : Height();
}

} // namespace forms
