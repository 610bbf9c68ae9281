#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/MenuBar.h"

class QMenuBar;

namespace desktop::qt {

/// The form's window puts it above the form's own area, in a strip as high as a design with menus leaves for
/// it.
class QtMenuBar final : public QtControl {
  public:
    QtMenuBar(forms::MenuBar& control, QtForm& form, QWidget* parent);

    /// Dots.
    int StripHeight() const;

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;
    void Colour() override;
    void Place() override;

  private:
    forms::MenuBar& model_;
    QMenuBar* bar_;
};

} // namespace desktop::qt
