#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtForm.h"
#include "desktop/qt/QtText.h"
#include "forms/Desktop.h"
#include "forms/Form.h"
#include "forms/TextBox.h"
#include "forms/TextUnits.h"

namespace desktop::qt {

namespace {

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
    bool DrawsItself() const override { return true; }
    bool MousePressed(const QMouseEvent& event) override;

  private:
    /// In characters.
    struct Selection {
        int Start;
        int Length;
    };

    void ShowText();
    void ShowSelection();
    void TellEdit();
    void TellSelection();
    void Type(const QString& text);
    bool Commit(const QInputMethodEvent& event);
    Selection Selected() const;

    forms::TextBox& model_;
    QLineEdit* edit_;
    bool typing_ = false;
};

QtTextBox::QtTextBox(forms::TextBox& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QLineEdit(parent)), model_(control),
      edit_(static_cast<QLineEdit*>(Widget())) {
    connect(edit_, &QLineEdit::textEdited, this, [this] { Guarded([this] { TellEdit(); }); });
    connect(edit_, &QLineEdit::selectionChanged, this, [this] { Guarded([this] { TellSelection(); }); });
    connect(edit_, &QLineEdit::cursorPositionChanged, this, [this] { Guarded([this] { TellSelection(); }); });
}

QtTextBox::Selection QtTextBox::Selected() const {
    const QString text = edit_->text();
    const int start = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
    const int end = start + static_cast<int>(edit_->selectedText().size());
    const int first = forms::CharactersIn(UnitsIn(text), start);
    return {first, forms::CharactersIn(UnitsIn(text), end) - first};
}

void QtTextBox::TellEdit() {
    const Selection selection = Selected();
    model_.UserEdit(FromQString(edit_->text()), selection.Start, selection.Length);
}

// The widget drops its selection when it loses the focus; the form's box keeps it.
void QtTextBox::TellSelection() {
    if (model_.Owner().ActiveControl() == &model_) {
        const Selection selection = Selected();
        model_.UserSelect(selection.Start, selection.Length);
    }
}

// What is typed goes in as an edit of the part that changed, so that the user can undo it; a text that the
// program sets replaces the whole.
void QtTextBox::ShowText() {
    const QString wanted = ToQString(model_.Text());
    const QString present = edit_->text();
    if (wanted == present) {
        return;
    }
    if (!typing_) {
        edit_->setText(wanted);
        return;
    }
    const forms::TextDifference change = forms::DifferenceOf(UnitsIn(present), UnitsIn(wanted));
    edit_->setSelection(change.Start, change.Removed);
    edit_->insert(wanted.mid(change.Start, change.Inserted));
    if (edit_->text() != wanted) { // a character that a box of one line cannot hold
        edit_->setText(wanted);
    }
}

void QtTextBox::ShowSelection() {
    const QString text = edit_->text();
    const int start = forms::UnitsOf(UnitsIn(text), model_.SelStart());
    const int end = forms::UnitsOf(UnitsIn(text), model_.SelStart() + model_.SelLength());
    if (end > start) {
        edit_->setSelection(start, end - start);
    } else {
        edit_->setCursorPosition(start);
        edit_->deselect();
    }
}

void QtTextBox::Mirror(forms::Aspect aspect) {
    QtControl::Mirror(aspect);
    if (aspect == forms::Aspect::Enabled) {
        edit_->setReadOnly(model_.Locked());
    }
}

void QtTextBox::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Text && aspect != forms::Aspect::Selection) {
        return;
    }
    ShowText();
    ShowSelection();
}

void QtTextBox::TakeFocus() {
    QtControl::TakeFocus();
    Mirror(forms::Aspect::Selection);
}

bool QtTextBox::MousePressed(const QMouseEvent& event) {
    if (!model_.CanFocus()) {
        return false;
    }
    // Any button brings the focus here: the right one opens the menu of the box.
    (void)event;
    return !model_.Owner().MoveFocus(model_);
}

void QtTextBox::Type(const QString& text) {
    const QScopedValueRollback rollback(typing_, true);
    for (const char32_t character : text.toStdU32String()) {
        model_.Owner().UserCharacter(character);
    }
}

bool QtTextBox::KeyPressed(const QKeyEvent& event, int virtualKey) {
    if (virtualKey == forms::key::Backspace) {
        const QScopedValueRollback rollback(typing_, true);
        model_.Owner().UserKey(virtualKey);
        return true;
    }
    const QString text = event.text();
    if (!text.isEmpty() && (text[0].isPrint() || text[0].isSurrogate())) {
        Type(text);
        return true;
    }
    return QtControl::KeyPressed(event, virtualKey);
}

// A character that was composed of several keys is typed like any other; what is still being composed stays
// with the widget.
bool QtTextBox::Commit(const QInputMethodEvent& event) {
    if (event.commitString().isEmpty()) {
        return false;
    }
    Type(event.commitString());
    QInputMethodEvent rest(event.preeditString(), event.attributes());
    edit_->removeEventFilter(this);
    QCoreApplication::sendEvent(edit_, &rest);
    Watch(edit_);
    return true;
}

bool QtTextBox::Filter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::InputMethod) {
        return Commit(*static_cast<QInputMethodEvent*>(event));
    }
    return QtControl::Filter(watched, event);
}

} // namespace

std::unique_ptr<QtControl> MakeTextBox(forms::TextBox& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtTextBox>(control, form, parent);
}

} // namespace desktop::qt
