#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/TextBox.h"

class QInputMethodEvent;
class QLineEdit;

namespace desktop::qt {

/// A typed character goes to the form's box, which filters and limits it; pasting, cutting and the like are
/// the widget's own, and the form's box is told what came of it.
class QtTextBox final : public QtControl {
  public:
    QtTextBox(forms::TextBox& control, QtForm& form, QWidget* parent);

    void Mirror(forms::Aspect aspect) override;
    void TakeFocus() override;
    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;
    bool MousePressed(const QMouseEvent& event) override;

  private:
    void ShowText();
    void ShowSelection();
    void TellEdit();
    void TellSelection();
    void Type(const QString& text);
    bool Commit(const QInputMethodEvent& event);
    int SelectionStart() const;

    forms::TextBox& model_;
    QLineEdit* edit_;
    bool typing_ = false;
};

} // namespace desktop::qt
