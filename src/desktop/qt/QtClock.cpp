#include "desktop/qt/QtClock.h"

#include <QDateTime>

namespace desktop::qt {

machine::DateTime QtClock::Now() const {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return {.Year = date.year(),
            .Month = date.month(),
            .Day = date.day(),
            .Hour = time.hour(),
            .Minute = time.minute(),
            .Second = time.second(),
            .Millisecond = time.msec()};
}

} // namespace desktop::qt
