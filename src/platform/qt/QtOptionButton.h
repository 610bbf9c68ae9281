#pragma once

#include "platform/forms/OptionButton.h"
#include "platform/qt/QtControl.h"

class QRadioButton;

namespace platform::qt {

class QtOptionButton final : public QtControl {
  public:
    QtOptionButton(forms::OptionButton& control, QtForm& form, QWidget* parent);

    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    /// The next option of the same container that the user can choose, around the end; nullptr if there is
    /// none.
    forms::OptionButton* Neighbour(bool backward) const;

    forms::OptionButton& model_;
    QRadioButton* button_;
};

} // namespace platform::qt
