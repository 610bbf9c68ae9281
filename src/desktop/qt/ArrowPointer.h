#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace desktop::qt {

/// The plain mouse pointer for as long as it lives: a run shows the hourglass, a question to the user in its
/// midst does not.
class ArrowPointer {
  public:
    ArrowPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowPointer() { QGuiApplication::restoreOverrideCursor(); }
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
};

} // namespace desktop::qt
