#include <vector>

#include <QFrame>
#include <QIcon>
#include <QToolButton>

#include "desktop/qt/Accessibility.h"
#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "desktop/qt/Scale.h"
#include "desktop/qt/ThemedPicture.h"
#include "forms/Toolbar.h"

namespace desktop::qt {

namespace {

// Twips. A button is as wide as the toolbar is high.
constexpr double RuleWidth = 150;
constexpr double PictureMargin = 120;
constexpr double RuleMargin = 90;

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

QtToolbar::QtToolbar(forms::Toolbar& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QWidget(parent)), model_(control) {
    SpeakAs(*Widget(), QAccessible::ToolBar);
}

QWidget* QtToolbar::MakeButton(int number) {
    const forms::ToolbarButton& model = model_.Button(number);
    if (model.Separator) {
        auto* rule = new QFrame(Widget());
        rule->setFrameStyle(static_cast<int>(QFrame::VLine) | static_cast<int>(QFrame::Sunken));
        return rule;
    }
    auto* button = new QToolButton(Widget());
    button->setObjectName(QStringLiteral("%1(%2)").arg(ToQString(model_.Name())).arg(number));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this,
            [this, number] { Guarded([&] { model_.UserClickButton(number); }); });
    return button;
}

void QtToolbar::MakeButtons() {
    while (static_cast<int>(buttons_.size()) < model_.ButtonCount()) {
        buttons_.push_back(MakeButton(static_cast<int>(buttons_.size()) + 1));
        buttons_.back()->show();
    }
    ShowPictures();
}

void QtToolbar::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Items) {
        return;
    }
    if (static_cast<int>(buttons_.size()) < model_.ButtonCount()) {
        MakeButtons();
    }
    for (int number = 1; number <= model_.ButtonCount(); ++number) {
        const forms::ToolbarButton& model = model_.Button(number);
        QWidget* button = buttons_[static_cast<std::size_t>(number - 1)];
        button->setEnabled(model.Enabled);
        button->setToolTip(PlainToolTip(ToQString(model.ToolTipText)));
        button->setAccessibleName(
            ToQString(model.AccessibleName.empty() ? model.ToolTipText : model.AccessibleName).trimmed());
    }
    Place();
}

void QtToolbar::Colour() {
    QtControl::Colour();
    ShowPictures();
}

void QtToolbar::ShowPictures() {
    for (std::size_t at = 0; at < buttons_.size(); ++at) {
        if (auto* button = qobject_cast<QToolButton*>(buttons_[at])) {
            const forms::ToolbarButton& model = model_.Button(static_cast<int>(at) + 1);
            button->setIcon(ThemedIcon(ToQString(model.Image), ToQString(model.HotImage),
                                       Widget()->palette().color(QPalette::Window)));
        }
    }
}

void QtToolbar::Place() {
    QtControl::Place();
    const double side = model_.Height();
    const int picture = ToDots(side - 2 * PictureMargin);
    double left = 0;
    for (QWidget* button : buttons_) {
        auto* pressable = qobject_cast<QToolButton*>(button);
        const double width = pressable == nullptr ? RuleWidth : side;
        const double margin = pressable == nullptr ? RuleMargin : 0;
        button->setGeometry(ToDots(left, margin, width, side - 2 * margin));
        if (pressable != nullptr) {
            pressable->setIconSize({picture, picture});
        }
        left += width;
    }
}

} // namespace

std::unique_ptr<QtControl> MakeToolbar(forms::Toolbar& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtToolbar>(control, form, parent);
}

} // namespace desktop::qt
