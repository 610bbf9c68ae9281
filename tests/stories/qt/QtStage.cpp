#include "QtStage.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "ScriptError.h"
#include "ShownValues.h"
#include "Windows.h"
#include "base/Text.h"
#include "desktop/qt/Scale.h"
#include "forms/ChoiceControl.h"
#include "forms/TextBox.h"
#include "forms/WheelTurn.h"
#include "forms/cmdButtonXP.h"

namespace scenario {

namespace {

struct KeyCode {
    int Code;
    Qt::Key Key;
};

constexpr std::array<KeyCode, 12> NamedKeys{{
    {forms::key::Backspace, Qt::Key_Backspace},
    {forms::key::Tab, Qt::Key_Tab},
    {forms::key::Enter, Qt::Key_Return},
    {forms::key::Escape, Qt::Key_Escape},
    {forms::key::PageUp, Qt::Key_PageUp},
    {forms::key::PageDown, Qt::Key_PageDown},
    {forms::key::End, Qt::Key_End},
    {forms::key::Home, Qt::Key_Home},
    {forms::key::Left, Qt::Key_Left},
    {forms::key::Up, Qt::Key_Up},
    {forms::key::Right, Qt::Key_Right},
    {forms::key::Down, Qt::Key_Down},
}};

/// The toolkit's name of a key; ScriptError if it has none.
Qt::Key KeyOf(int code) {
    const auto* const named = std::find_if(NamedKeys.begin(), NamedKeys.end(),
                                           [code](const KeyCode& key) { return key.Code == code; });
    if (named != NamedKeys.end()) {
        return named->Key;
    }
    if (code == ' ' || (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z')) {
        return static_cast<Qt::Key>(code); // figures and letters have the same number
    }
    throw ScriptError("no such key: " + std::to_string(code));
}

/// Where a click on a control meets it: beside the text of an option or a check box there may be nothing.
QPoint Spot(const QWidget* widget) {
    constexpr int besideTheEdge = 12;
    return {std::min(besideTheEdge, widget->width() / 2), widget->height() / 2};
}

/// What only shows something takes no click.
bool TakesClicks(const forms::Control& control) {
    return control.TakesFocus() || dynamic_cast<const forms::cmdButtonXP*>(&control) != nullptr;
}

bool IsChoice(const forms::Control& control) {
    return dynamic_cast<const forms::ChoiceControl*>(&control) != nullptr;
}

/// nullptr if there is none.
QWidget* WidgetOf(const Target& target) {
    return target.Element == forms::Control::NoIndex ? windows::Of(*target.Control)
                                                     : windows::PartOf(*target.Control, target.Element);
}

/// Where the pointer goes; ScriptError if the control is not to be seen.
QWidget* PlaceOf(const Target& target) {
    QWidget* widget = WidgetOf(target);
    if (widget == nullptr || !widget->isVisible()) {
        throw ScriptError("not to be seen: " + FullName(*target.Control));
    }
    return widget;
}

void PickInList(QListWidget& list, int entry) {
    QListWidgetItem* item = list.item(entry);
    list.scrollToItem(item);
    windows::Click(list.viewport(), list.visualItemRect(item).center());
}

/// The focus alone: a click on an entry picks it, and one on a combo drops its list down.
void FocusChoice(QWidget& widget) {
    widget.setFocus(Qt::MouseFocusReason);
    windows::Settle();
}

/// Drops the list down with the mouse and picks with the keys: just after the one the mouse picks nothing.
void PickInCombo(QComboBox& combo, int entry) {
    windows::Click(&combo, Spot(&combo));
    QAbstractItemView* list = combo.view();
    if (!list->isVisible()) {
        return; // the box that had the focus took it back
    }
    windows::Key(list, Qt::Key_Home);
    for (int row = 0; row < entry; ++row) {
        windows::Key(list, Qt::Key_Down);
    }
    windows::Key(list, Qt::Key_Return);
}

} // namespace

QtStage::QtStage(memory::MemoryPlatform& memory, desktop::qt::QtDesktop& real, const machine::Platform& rest,
                 const QString& suffix)
    : desktop_(memory, real, rest.Desktop), pictures_(suffix),
      file_([this](QWidget& window) { pictures_.TakeNext(window); }), services_{desktop_,      rest.Registry,
                                                                                rest.Locale,   rest.Clock,
                                                                                rest.Random,   rest.Spooler,
                                                                                rest.Printers, rest.Printer,
                                                                                rest.Bitmaps,  real.Windows(),
                                                                                rest.Fonts} {
    desktop_.OnMessage = [this](QWidget& box) { pictures_.TakeNext(box); };
}

void QtStage::Settle() {
    windows::Settle();
}

bool QtStage::Reaches(const forms::Form& form) const {
    const QWidget* window = windows::Of(form);
    const QWidget* modal = QApplication::activeModalWidget();
    return window != nullptr && window->isVisible() && (modal == nullptr || modal == window);
}

// A label may cut its text and marks no access key; a picture button that is off keeps its window.
std::optional<Json> QtStage::Shown(const Target& target, const PathPart& property) const {
    const QWidget* widget = WidgetOf(target);
    const bool flat = dynamic_cast<const forms::cmdButtonXP*>(target.Control) != nullptr;
    if (widget == nullptr || (flat && property.Name == "Enabled")) {
        return std::nullopt;
    }
    return ShownValue(*widget, property);
}

// What is disabled is clicked as well: nothing is to come of it.
bool QtStage::Click(forms::Control& control) {
    QWidget* widget = windows::Of(control);
    if (widget == nullptr || !widget->isVisible() || !TakesClicks(control)) {
        return false;
    }
    const bool usable = windows::Usable(widget) && control.IsUsable();
    if (IsChoice(control)) {
        return usable && Focus(control);
    }
    windows::Click(widget, Spot(widget));
    return usable;
}

bool QtStage::ClickTool(forms::Control& toolbar, int number) {
    QWidget* button = windows::PartOf(toolbar, number);
    if (button == nullptr || !button->isVisible()) {
        return false;
    }
    const bool usable = windows::Usable(button);
    windows::Click(button, Spot(button));
    return usable;
}

bool QtStage::Pick(forms::ChoiceControl& list, int entry) {
    QWidget* widget = windows::Of(list);
    if (!windows::Usable(widget) || entry < 0 || entry >= list.ListCount()) {
        return false;
    }
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        PickInCombo(*combo, entry);
    } else {
        PickInList(*qobject_cast<QListWidget*>(widget), entry);
    }
    return true;
}

// A press that is let go elsewhere clicks nothing; in a text it would select.
bool QtStage::Focus(forms::Control& control) {
    QWidget* widget = windows::Of(control);
    if (!windows::Usable(widget) || !control.TakesFocus()) {
        return false;
    }
    if (dynamic_cast<const forms::TextBox*>(&control) != nullptr) {
        windows::Click(widget, Spot(widget));
    } else if (IsChoice(control)) {
        FocusChoice(*widget);
    } else {
        windows::Press(widget, Spot(widget));
        windows::Release(widget, widget->mapFrom(widget->window(), QPoint(0, 0)));
    }
    return true;
}

// As a thumb that is dragged to this place.
bool QtStage::Scroll(forms::ScrollBar& bar, int value) {
    auto* slider = qobject_cast<QScrollBar*>(windows::Of(bar));
    if (!windows::Usable(slider)) {
        return false;
    }
    slider->setSliderDown(true);
    slider->setSliderPosition(value);
    slider->setSliderDown(false);
    windows::Settle();
    return true;
}

bool QtStage::Choose(forms::MenuBar& menu, const std::string& id) {
    auto* bar = qobject_cast<QMenuBar*>(windows::Of(menu));
    if (!windows::Usable(bar)) {
        return false;
    }
    for (QAction* title : bar->actions()) {
        const QList<QAction*> lines = title->menu()->actions();
        const auto line = std::find_if(lines.begin(), lines.end(), [&](const QAction* action) {
            return action->objectName() == QString::fromStdString(id);
        });
        if (line != lines.end()) {
            windows::Click(bar, bar->actionGeometry(title).center());
            windows::Click(title->menu(), title->menu()->actionGeometry(*line).center());
            return true;
        }
    }
    return false;
}

void QtStage::Wheel(forms::Form& form, int delta) {
    if (std::abs(delta) < forms::WheelTurn::Notch) {
        // The window adds up such parts: as a message of its own this comes from another program alone.
        desktop_.Windows().SendWheel(form.hWnd(), static_cast<std::int16_t>(delta));
        windows::Settle();
        return;
    }
    QWidget* window = windows::Of(form);
    const QPointF middle = window->rect().center();
    QWheelEvent wheel(middle, window->mapToGlobal(middle), {}, QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    // Only an event from outside goes on to the widgets behind, and sendEvent() says that it is none.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(window->windowHandle(), &wheel);
    windows::Settle();
}

void QtStage::Over(const Target& target) {
    const QWidget* widget = PlaceOf(target);
    windows::PointAt(widget, widget->rect().center());
}

void QtStage::Away(const Target& target) {
    windows::PointAt(windows::Of(*target.Form), {1, 1});
}

void QtStage::Down(const Target& target) {
    Over(target);
    QWidget* widget = PlaceOf(target);
    windows::Press(widget, widget->rect().center());
}

void QtStage::Up(const Target& target) {
    QWidget* widget = PlaceOf(target);
    windows::Release(widget, widget->mapFromGlobal(QCursor::pos()));
}

bool QtStage::Type(forms::TextBox& box, const std::u32string& keys) {
    auto* edit = qobject_cast<QLineEdit*>(windows::Of(box));
    if (!windows::Usable(edit)) {
        return false;
    }
    windows::Click(edit, Spot(edit));
    if (QApplication::focusWidget() != edit) {
        return true; // the box that had the focus took it back
    }
    windows::Key(edit, Qt::Key_End);
    for (const char32_t key : keys) {
        if (key == static_cast<char32_t>(forms::key::Backspace)) {
            windows::Key(edit, Qt::Key_Backspace);
        } else {
            windows::Key(edit, Qt::Key_unknown, QString::fromStdString(base::text::Encode(key)));
        }
    }
    return true;
}

void QtStage::Key(forms::Form& form, int code) {
    windows::Key(windows::Of(form), KeyOf(code));
}

bool QtStage::Close(forms::Form& form) {
    return windows::Close(form);
}

void QtStage::Picture(forms::Form& form, const std::string& name, bool menu) {
    QWidget* window = windows::Of(form);
    auto* bar = menu ? window->findChild<QMenuBar*>() : nullptr;
    if (menu && bar == nullptr) {
        throw ScriptError("no menu on " + form.Name());
    }
    if (bar == nullptr) {
        pictures_.Take(*window, name);
        return;
    }
    windows::Click(bar, bar->actionGeometry(bar->actions().front()).center());
    pictures_.Take(*window, name);
    windows::Key(QApplication::activePopupWidget(), Qt::Key_Escape);
}

// A window has whole dots: of what is less than one the form is told beside it.
void QtStage::Resize(forms::Form& form, double width, double height) {
    windows::Of(form)->resize(desktop::qt::ToDots(width - forms::ResizeFrameWidth),
                              desktop::qt::ToDots(height - forms::TitleBarHeight));
    windows::Settle();
    form.UserResize(width, height);
}

} // namespace scenario
