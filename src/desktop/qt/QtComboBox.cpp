#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/ChoiceControl.h"

namespace desktop::qt {

namespace {

class QtComboBox final : public QtControl {
  public:
    QtComboBox(forms::ComboBox& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;
    bool DrawsItself() const override { return true; }

  private:
    void WidenList();

    forms::ComboBox& model_;
    QComboBox* combo_;
};

QtComboBox::QtComboBox(forms::ComboBox& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QComboBox(parent)), model_(control),
      combo_(static_cast<QComboBox*>(Widget())) {
    connect(combo_, &QComboBox::activated, this, [this](int index) {
        Guarded([&] { model_.UserPick(index); });
        Guarded([this] { Mirror(forms::Aspect::Value); });
    });
}

void QtComboBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Items) {
        if (combo_->count() > model_.ListCount()) {
            combo_->clear();
        }
        while (combo_->count() < model_.ListCount()) {
            combo_->addItem(ToQString(model_.List(combo_->count())));
        }
    } else if (aspect != forms::Aspect::Value) {
        return;
    }
    combo_->setCurrentIndex(model_.ListIndex());
}

// The names of papers are often wider than the box.
void QtComboBox::WidenList() {
    QAbstractItemView* list = combo_->view();
    list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth());
}

bool QtComboBox::Filter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Wheel:
        // Rolling over a box on the way elsewhere must not choose another printer or paper.
        if (!combo_->hasFocus()) {
            event->ignore();
            return true;
        }
        break;
    case QEvent::FocusIn:
        WidenList();
        break;
    default:
        break;
    }
    return QtControl::Filter(watched, event);
}

} // namespace

std::unique_ptr<QtControl> MakeComboBox(forms::ComboBox& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtComboBox>(control, form, parent);
}

} // namespace desktop::qt
