#include "ShownValues.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>

#include "desktop/qt/QtText.h"
#include "forms/TextUnits.h"

namespace scenario {

namespace {

using desktop::qt::FromQString;
using desktop::qt::UnitsIn;

/// A property that widgets of one class show.
template <class WidgetType>
struct Show {
    std::string_view Name;
    Json (*Get)(const WidgetType&);
};

constexpr Show<QWidget> OfAll[] = {
    {"Visible", [](const QWidget& w) { return Json(!w.isHidden()); }},
    {"Enabled", [](const QWidget& w) { return Json(w.isEnabledTo(w.parentWidget())); }},
};

constexpr Show<QLineEdit> OfBoxes[] = {
    {"Text", [](const QLineEdit& w) { return Json(FromQString(w.text())); }},
    {"Locked", [](const QLineEdit& w) { return Json(w.isReadOnly()); }},
};

// A box without the focus shows no selection.
constexpr Show<QLineEdit> OfBoxesWithFocus[] = {
    {"SelStart",
     [](const QLineEdit& w) {
         const QString text = w.text();
         return Json(forms::CharactersIn(UnitsIn(text),
                                         w.hasSelectedText() ? w.selectionStart() : w.cursorPosition()));
     }},
    {"SelLength",
     [](const QLineEdit& w) {
         const QString text = w.selectedText();
         return Json(forms::CharactersIn(UnitsIn(text), w.selectionLength()));
     }},
};

constexpr Show<QAbstractButton> OfButtons[] = {
    {"Caption", [](const QAbstractButton& w) { return Json(FromQString(w.text())); }},
    {"Value", [](const QAbstractButton& w) { return Json(w.isChecked()); }},
};

constexpr Show<QComboBox> OfCombos[] = {
    {"Text", [](const QComboBox& w) { return Json(FromQString(w.currentText())); }},
    {"ListIndex", [](const QComboBox& w) { return Json(w.currentIndex()); }},
    {"ListCount", [](const QComboBox& w) { return Json(w.count()); }},
};

constexpr Show<QListWidget> OfLists[] = {
    {"ListIndex",
     [](const QListWidget& w) { return Json(w.selectedItems().isEmpty() ? -1 : w.currentRow()); }},
    {"ListCount", [](const QListWidget& w) { return Json(w.count()); }},
};

constexpr Show<QScrollBar> OfScrollBars[] = {
    {"Value", [](const QScrollBar& w) { return Json(w.value()); }},
};

constexpr Show<QProgressBar> OfProgressBars[] = {
    {"Value", [](const QProgressBar& w) { return Json(w.value()); }},
};

constexpr Show<QLabel> OfPanels[] = {
    {"Text", [](const QLabel& w) { return Json(FromQString(w.text())); }},
};

template <class WidgetType, class Table>
bool Look(const QWidget& widget, const Table& table, const PathPart& property, std::optional<Json>& value) {
    const auto* const typed = dynamic_cast<const WidgetType*>(&widget);
    for (const Show<WidgetType>& show : table) {
        if (typed != nullptr && show.Name == property.Name) {
            value = show.Get(*typed);
        }
    }
    return value.has_value();
}

} // namespace

std::optional<Json> ShownValue(const QWidget& widget, const PathPart& property) {
    std::optional<Json> value;
    if (property.HasIndex() ||
        (widget.hasFocus() && Look<QLineEdit>(widget, OfBoxesWithFocus, property, value)) ||
        Look<QLineEdit>(widget, OfBoxes, property, value) ||
        Look<QAbstractButton>(widget, OfButtons, property, value) ||
        Look<QComboBox>(widget, OfCombos, property, value) ||
        Look<QListWidget>(widget, OfLists, property, value) ||
        Look<QScrollBar>(widget, OfScrollBars, property, value) ||
        Look<QProgressBar>(widget, OfProgressBars, property, value) ||
        Look<QLabel>(widget, OfPanels, property, value) || Look<QWidget>(widget, OfAll, property, value)) {
        return value;
    }
    return std::nullopt;
}

} // namespace scenario
