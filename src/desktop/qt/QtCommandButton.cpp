#include <QKeyEvent>
#include <QPushButton>

#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/CommandButton.h"

namespace desktop::qt {

namespace {

class QtCommandButton final : public QtControl {
  public:
    QtCommandButton(forms::CommandButton& control, QtForm& form, QWidget* parent);

    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    bool DrawsItself() const override { return true; }

  private:
    forms::CommandButton& model_;
    QPushButton* button_;
};

QtCommandButton::QtCommandButton(forms::CommandButton& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QPushButton(parent)), model_(control),
      button_(static_cast<QPushButton*>(Widget())) {
    button_->setAutoDefault(false);
    connect(button_, &QPushButton::clicked, this, [this] { Click(); });
}

void QtCommandButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        button_->setText(ToQString(model_.Caption()));
    } else if (aspect == forms::Aspect::Value) {
        button_->setDefault(model_.Default());
    }
}

bool QtCommandButton::KeyPressed(const QKeyEvent& event, int virtualKey) {
    QtControl::KeyPressed(event, virtualKey);
    // The arrows would move the toolkit's focus; the space bar presses and releases the button as the mouse
    // does.
    return event.key() != Qt::Key_Space;
}

} // namespace

std::unique_ptr<QtControl> MakeCommandButton(forms::CommandButton& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtCommandButton>(control, form, parent);
}

} // namespace desktop::qt
