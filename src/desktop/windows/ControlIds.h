#pragma once

namespace desktop::windows {

/// Numbers of the program's windows and commands, by which assistive technology and test drivers find them.
/// A form is a top window whose class is the form's name.
///
/// A control's window has the number FirstControl plus the control's place in Form::Controls(), from 0.
/// Controls without a window (timers, menu bars) count as well. A timer's number is that of its control.
inline constexpr int FirstControl = 1000;

/// Button n of a toolbar, from 1 and separators counted, sends the command FirstToolbarButton + n.
inline constexpr int FirstToolbarButton = 8000;

/// The lines of a form's menus count from 0 in the order in which they are read, separators included; line n
/// sends the command FirstMenuLine + n.
inline constexpr int FirstMenuLine = 9000;

} // namespace desktop::windows
