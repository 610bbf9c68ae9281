#pragma once

#include <vector>

#include "desktop/qt/QtControl.h"
#include "forms/Toolbar.h"

class QToolButton;

namespace desktop::qt {

/// A row of buttons that light up under the mouse.
class QtToolbar final : public QtControl {
  public:
    QtToolbar(forms::Toolbar& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    void Colour() override;
    void Place() override;

  private:
    void MakeButtons();
    QWidget* MakeButton(int number);
    void ShowPictures();

    forms::Toolbar& model_;
    std::vector<QWidget*> buttons_; // the button or the rule at each place
};

} // namespace desktop::qt
