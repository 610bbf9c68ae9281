#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A field of a status bar.
struct StatusPanel {
    std::string Text;
    double Width = 1440; ///< twips
};

/// The line of fields at the bottom of a form, over its whole width wherever it is put. Panels count from 1.
class StatusBar : public Control {
  public:
    StatusBar(Form& form, std::string name, int panels)
        : Control(form, std::move(name), NoIndex, nullptr), panels_(static_cast<std::size_t>(panels)) {}

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    int PanelCount() const { return static_cast<int>(panels_.size()); }
    /// ErrorSubscriptOutOfRange outside 1 to PanelCount().
    const StatusPanel& Panel(int number) const;
    void SetPanelText(int number, const std::string& text);
    void SetPanelWidth(int number, double width);

    /// Where what stands above the bar ends, twips. The bar begins there: it becomes higher for that, or a
    /// little lower.
    void SetFormEnd(double end);
    std::optional<double> FormEnd() const { return formEnd_; }
    double LeastHeight() const;

  private:
    std::vector<StatusPanel> panels_;
    std::optional<double> formEnd_;
};

} // namespace forms
