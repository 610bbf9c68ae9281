#pragma once

class QWidget;

namespace desktop::qt {

/// Name of the property of a widget that tells its role to assistive technology: a number of
/// QAccessible::Role. For widgets of the program's own making, whose role the toolkit cannot know.
inline constexpr const char* RoleProperty = "accessibleRole";

/// Tells assistive technology that a widget of the program's own making does nothing now, or works again,
/// while it stays enabled for the toolkit.
void SpeakEnabled(QWidget& widget, bool enabled);

/// From now on assistive technology meets the program's own widgets in the order in which they are read, each
/// with its role, and without those that only decorate. Once, before the first window.
void InstallAccessibility();

} // namespace desktop::qt
