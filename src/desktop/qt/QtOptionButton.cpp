#include <QKeyEvent>
#include <QRadioButton>

#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/OptionButton.h"

namespace desktop::qt {

namespace {

class QtOptionButton final : public QtControl {
  public:
    QtOptionButton(forms::OptionButton& control, QtForm& form, QWidget* parent);

    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    bool DrawsItself() const override { return true; }

  private:
    forms::OptionButton& model_;
    QRadioButton* button_;
};

QtOptionButton::QtOptionButton(forms::OptionButton& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QRadioButton(parent)), model_(control),
      button_(static_cast<QRadioButton*>(Widget())) {
    // Which options exclude each other is the form's business.
    button_->setAutoExclusive(false);
    connect(button_, &QRadioButton::clicked, this, [this] { Click(); });
}

void QtOptionButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        button_->setText(ToQString(model_.Caption()));
    } else if (aspect == forms::Aspect::Value) {
        button_->setChecked(model_.Value());
    }
}

bool QtOptionButton::KeyPressed(const QKeyEvent& event, int virtualKey) {
    QtControl::KeyPressed(event, virtualKey);
    return event.key() != Qt::Key_Space;
}

} // namespace

std::unique_ptr<QtControl> MakeOptionButton(forms::OptionButton& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtOptionButton>(control, form, parent);
}

} // namespace desktop::qt
