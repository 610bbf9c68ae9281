#pragma once

#include <QAccessible>

class QWidget;

namespace desktop::qt {

/// Tells assistive technology the role of a widget of the program's own making, which the toolkit cannot
/// know.
void SpeakAs(QWidget& widget, QAccessible::Role role);

/// Tells assistive technology that a widget of the program's own making does nothing now, or works again,
/// while it stays enabled for the toolkit.
void SpeakEnabled(QWidget& widget, bool enabled);

/// From now on assistive technology meets the program's own widgets in the order in which they are read, each
/// with its role, and without those that only decorate. Once, before the first window.
void InstallAccessibility();

} // namespace desktop::qt
