#pragma once

#include <functional>

#include <QPoint>
#include <QWidget>

#include "forms/Form.h"

/// The real windows of the forms, and what a user does to them. Each deed is over when all that it set off
/// is, but for a modal form, whose lines are played inside it.
namespace scenario::windows {

QWidget* Of(const forms::Form& form);
/// The widget of a control; nullptr if it has none.
QWidget* Of(const forms::Control& control);
/// A part of a control by its number, such as a button of a toolbar; nullptr if there is none.
QWidget* PartOf(const forms::Control& control, int number);

/// The widget is shown and not disabled.
bool Usable(const QWidget* widget);

/// Handles what waits now, queued calls included, until the window that takes input has the keyboard.
void Settle();

// The left button of the mouse, at a place of the widget, as the window system reports it.
void Press(QWidget* widget, const QPoint& at);
void Release(QWidget* widget, const QPoint& at);
void Click(QWidget* widget, const QPoint& at);

/// The pointer comes to rest at a place of the widget.
void PointAt(const QWidget* widget, const QPoint& at);

/// A key to whatever has the keyboard in the widget's window.
void Key(QWidget* widget, Qt::Key key, const QString& text = {});

/// The close box. False if the form refuses.
bool Close(const forms::Form& form);

} // namespace scenario::windows
