#include "desktop/qt/QtListBox.h"

#include <QListWidget>
#include <QMouseEvent>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtText.h"

namespace desktop::qt {

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

} // namespace desktop::qt
