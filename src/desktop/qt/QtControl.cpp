#include "desktop/qt/QtControl.h"

#include <algorithm>
#include <array>

#include <QApplication>
#include <QFontInfo>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QSignalBlocker>

#include "desktop/qt/Fonts.h"
#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtColours.h"
#include "desktop/qt/QtForm.h"
#include "desktop/qt/QtText.h"
#include "desktop/qt/Scale.h"
#include "forms/AccessibleNames.h"
#include "forms/Contrast.h"
#include "forms/Form.h"

namespace desktop::qt {

using forms::Aspect;

namespace {

// All that a new widget has to show. The selection belongs to the text and the order of depth to the making.
constexpr std::array AllAspects{Aspect::Font,    Aspect::Colours, Aspect::Geometry, Aspect::Caption,
                                Aspect::Picture, Aspect::Items,   Aspect::Text,     Aspect::Value,
                                Aspect::ToolTip, Aspect::Enabled, Aspect::Visible};

QString ObjectName(const forms::Control& control) {
    const QString name = ToQString(control.Name());
    return control.Index() == forms::Control::NoIndex
               ? name
               : QStringLiteral("%1(%2)").arg(name).arg(control.Index());
}

constexpr double DesignFontSize = 9;

// A theme has one colour for texts on its boxes and another for those on its windows; a form may put a label
// on what looks like a box, or the other way round. Mostly they are the same, and nothing has to change.
void UseText(QPalette& palette, QPalette::ColorRole drawn, QPalette::ColorRole wanted) {
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        if (palette.color(group, drawn) != palette.color(group, wanted)) {
            palette.setColor(group, drawn, palette.color(group, wanted));
        }
    }
}

} // namespace

QtControl::QtControl(forms::Control& control, QtForm& form, QWidget* widget)
    : model_(control), form_(form), widget_(widget) {
    if (widget_ == nullptr) {
        return;
    }
    widget_->setObjectName(ObjectName(control));
    widget_->setFocusPolicy(control.TakesFocus() ? Qt::TabFocus : Qt::NoFocus);
    Watch(widget_);
}

void QtControl::MirrorAll() {
    for (const Aspect aspect : AllAspects) {
        Mirror(aspect);
    }
}

void QtControl::Mirror(Aspect aspect) {
    if (widget_ == nullptr) {
        MirrorContent(aspect);
        return;
    }
    const QSignalBlocker silent(widget_);
    switch (aspect) {
    case Aspect::Geometry:
        Place();
        break;
    case Aspect::Visible:
        widget_->setVisible(model_.Visible());
        break;
    case Aspect::Enabled:
        widget_->setEnabled(model_.Enabled());
        break;
    case Aspect::ToolTip:
        widget_->setToolTip(PlainToolTip(ToQString(model_.ToolTipText())));
        break;
    case Aspect::Font:
        MirrorFont();
        Place();
        break;
    case Aspect::Colours:
        Colour();
        break;
    case Aspect::ZOrder:
        widget_->raise();
        break;
    default:
        MirrorContent(aspect);
        break;
    }
    if (aspect == Aspect::Caption || aspect == Aspect::ToolTip) {
        widget_->setAccessibleName(ToQString(AccessibleNameOf(model_)));
    }
}

void QtControl::Place() {
    widget_->setGeometry(ToDots(model_.Left(), model_.Top(), model_.Width(), model_.Height()));
}

// Sizes in points are those of the design; a user with a larger font sees all of them grow alike.
void QtControl::MirrorFont() {
    const forms::ControlFont& wanted = model_.Font();
    QFont font = QApplication::font(widget_);
    if (!wanted.Name.empty()) {
        font.setFamily(QString::fromStdString(ResolveFamily(wanted.Name)));
    }
    if (wanted.Size > 0) {
        const double growth = std::max(1.0, QFontInfo(QApplication::font()).pointSizeF() / DesignFontSize);
        font.setPointSizeF(wanted.Size * growth);
    }
    font.setBold(wanted.Bold);
    if (wanted.Bold && !wanted.Name.empty()) { // that of the desktop is as bold as in its other windows
        ProvideBold(font);
    }
    widget_->setFont(font);
}

void QtControl::Colour() {
    const QPalette theme = QApplication::palette(widget_);
    QPalette palette = theme;
    palette.setResolveMask(0); // what is not set below comes from what holds the control
    const forms::Colour background = model_.ShownBackColor();
    const bool filled = model_.BackColor() != forms::colour::Transparent;
    if (filled) {
        const QColor colour = ToQColor(background, theme);
        for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base}) {
            palette.setColor(role, colour);
        }
        widget_->setAutoFillBackground(!DrawsItself());
    }
    if (DrawsItself()) {
        Outline(palette, theme);
    }
    if (background == forms::colour::WindowBackground) {
        UseText(palette, QPalette::WindowText, QPalette::Text);
    } else if (filled) {
        UseText(palette, QPalette::Text, QPalette::WindowText);
    }
    if (model_.ForeColor() != forms::colour::WindowText) {
        const QColor colour = TextColour(theme);
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(QPalette::Active, role, colour);
            palette.setColor(QPalette::Inactive, role, colour);
        }
    }
    widget_->setPalette(palette);
}

// The theme may be dark, or ask for high contrast: a form's own colour then gives way.
QColor QtControl::TextColour(const QPalette& theme) const {
    const QColor wanted = ToQColor(model_.ForeColor(), theme);
    const QColor background = ToQColor(model_.ShownBackColor(), theme);
    const forms::Colour shown =
        forms::Readable(FromQColor(wanted), FromQColor(background), forms::ContrastOfText);
    return forms::colour::IsSystem(model_.ForeColor()) ? wanted : ToQColor(shown, theme);
}

void QtControl::TakeFocus() {
    if (widget_ != nullptr) {
        widget_->setFocus(Qt::OtherFocusReason);
    }
}

void QtControl::Click() {
    Guarded([this] { model_.UserClick(); });
    Guarded([this] { Mirror(Aspect::Value); });
}

bool QtControl::KeyPressed(const QKeyEvent& event, int virtualKey) {
    return model_.UserKey(virtualKey, (event.modifiers() & Qt::ShiftModifier) != 0);
}

// The focus is settled before the widget sees the press. If the control that had it takes it back (perhaps
// after a message box that ran inside this call), the press is lost, and with it the click.
bool QtControl::MousePressed(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || !model_.CanFocus()) {
        return false;
    }
    return !model_.Owner().MoveFocus(model_);
}

bool QtControl::eventFilter(QObject* watched, QEvent* event) {
    return Guarded(true, [&] { return Filter(watched, event); });
}

bool QtControl::Filter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        return form_.KeyPressed(*static_cast<QKeyEvent*>(event), this);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return MousePressed(*static_cast<QMouseEvent*>(event));
    case QEvent::Shortcut:
        if (!static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
            Click();
            return true;
        }
        break;
    case QEvent::FocusIn:
        form_.SettleFocusLater();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace desktop::qt
