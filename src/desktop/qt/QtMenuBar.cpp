#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtForm.h"
#include "desktop/qt/QtText.h"
#include "desktop/qt/Scale.h"
#include "forms/MenuBar.h"

namespace desktop::qt {

namespace {

/// The form's window puts it above the form's own area, in a strip as high as a design with menus leaves for
/// it.
class QtMenuBar final : public QtControl {
  public:
    QtMenuBar(forms::MenuBar& control, QtForm& form, QWidget* parent);

    int StripHeight() const override;

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;
    void Colour() override;
    void Place() override;

  private:
    forms::MenuBar& model_;
    QMenuBar* bar_;
};

QtMenuBar::QtMenuBar(forms::MenuBar& control, QtForm& form, QWidget* /*parent*/)
    : QtControl(control, form, new QMenuBar(form.Window())), model_(control),
      bar_(static_cast<QMenuBar*>(Widget())) {
    bar_->setNativeMenuBar(false);
}

void QtMenuBar::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Items) {
        return;
    }
    bar_->clear();
    for (QMenu* old : bar_->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        old->deleteLater(); // it may be the one whose entry was just chosen
    }
    for (const forms::Menu& menu : model_.Menus()) {
        QMenu* shown = bar_->addMenu(ToQString(menu.Caption));
        for (const forms::MenuTool& tool : menu.Tools) {
            if (tool.Separator) {
                shown->addSeparator();
                continue;
            }
            QAction* action = shown->addAction(ToQString(tool.Caption));
            action->setObjectName(ToQString(tool.Id));
            connect(action, &QAction::triggered, this,
                    [this, id = tool.Id] { Guarded([&] { model_.UserChoose(id); }); });
        }
    }
}

// The bar opens a menu by its access key itself.
bool QtMenuBar::Filter(QObject* watched, QEvent* event) {
    return event->type() != QEvent::Shortcut && QtControl::Filter(watched, event);
}

// The bar shows the window's background, and the toolkit draws its texts like those of buttons.
void QtMenuBar::Colour() {
    QPalette palette = QApplication::palette(bar_);
    const QColor text = palette.color(QPalette::WindowText);
    if (palette.color(QPalette::ButtonText) != text) {
        palette.setColor(QPalette::ButtonText, text);
    }
    bar_->setPalette(palette);
}

int QtMenuBar::StripHeight() const {
    constexpr double designHeight = 390;
    return std::max(ToDots(designHeight), bar_->sizeHint().height());
}

// In the middle of the strip, at the height that the desktop gives it.
void QtMenuBar::Place() {
    const int height = bar_->sizeHint().height();
    bar_->setGeometry(0, (StripHeight() - height) / 2, Form().Window()->width(), height);
}

} // namespace

std::unique_ptr<QtControl> MakeMenuBar(forms::MenuBar& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtMenuBar>(control, form, parent);
}

} // namespace desktop::qt
