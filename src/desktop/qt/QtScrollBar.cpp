#include <QEvent>
#include <QScrollBar>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "forms/ScrollBar.h"

namespace desktop::qt {

namespace {

class QtScrollBar final : public QtControl {
  public:
    QtScrollBar(forms::ScrollBar& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ScrollBar& model_;
    QScrollBar* bar_;
};

QtScrollBar::QtScrollBar(forms::ScrollBar& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QScrollBar(parent)), model_(control),
      bar_(static_cast<QScrollBar*>(Widget())) {
    bar_->setOrientation(control.Orientation() == forms::ScrollBar::Direction::Horizontal ? Qt::Horizontal
                                                                                          : Qt::Vertical);
    bar_->setRange(control.Min(), control.Max());
    bar_->setTracking(false); // a thumb that is being dragged reports nothing
    connect(bar_, &QScrollBar::valueChanged, this, [this](int value) {
        Guarded([&] { model_.UserScroll(value); });
        Guarded([this] { Mirror(forms::Aspect::Value); });
    });
}

void QtScrollBar::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Value) {
        bar_->setSingleStep(model_.SmallChange());
        bar_->setPageStep(model_.LargeChange());
        bar_->setValue(model_.Value());
    }
}

bool QtScrollBar::Filter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) { // the form itself follows the wheel
        event->ignore();
        return true;
    }
    return QtControl::Filter(watched, event);
}

} // namespace

std::unique_ptr<QtControl> MakeScrollBar(forms::ScrollBar& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtScrollBar>(control, form, parent);
}

} // namespace desktop::qt
