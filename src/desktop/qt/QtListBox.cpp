#include <QListWidget>
#include <QMouseEvent>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/ChoiceControl.h"

namespace desktop::qt {

namespace {

class QtListBox final : public QtControl {
  public:
    QtListBox(forms::ListBox& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;
    bool DrawsItself() const override { return true; }

  private:
    void Pick(int row);

    forms::ListBox& model_;
    QListWidget* list_;
    bool picked_ = false; // the press in progress has picked an entry already
};

QtListBox::QtListBox(forms::ListBox& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QListWidget(parent)), model_(control),
      list_(static_cast<QListWidget*>(Widget())) {
    list_->setUniformItemSizes(true);
    list_->setSpacing(1);
    Watch(list_->viewport());
    // The toolkit makes an entry current when the list gets the focus; only a selected one has been picked.
    connect(list_, &QListWidget::itemSelectionChanged, this, [this] {
        if (!list_->selectedItems().isEmpty()) {
            Pick(list_->row(list_->selectedItems().front()));
        }
    });
    // A click on the entry that is selected already is a click all the same.
    connect(list_, &QListWidget::itemPressed, this, [this](QListWidgetItem* item) {
        if (!picked_) {
            Pick(list_->row(item));
        }
    });
}

void QtListBox::Pick(int row) {
    picked_ = true;
    Guarded([&] { model_.UserPick(row); });
    Guarded([this] { Mirror(forms::Aspect::Value); });
}

bool QtListBox::Filter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        picked_ = false;
    }
    return QtControl::Filter(watched, event);
}

void QtListBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Items) {
        if (list_->count() > model_.ListCount()) {
            list_->clear();
        }
        while (list_->count() < model_.ListCount()) {
            list_->addItem(ToQString(model_.List(list_->count())));
        }
    } else if (aspect != forms::Aspect::Value) {
        return;
    }
    list_->setCurrentRow(model_.ListIndex());
    if (model_.ListIndex() == -1) {
        list_->clearSelection();
    }
}

} // namespace

std::unique_ptr<QtControl> MakeListBox(forms::ListBox& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtListBox>(control, form, parent);
}

} // namespace desktop::qt
