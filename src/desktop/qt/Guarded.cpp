#include "desktop/qt/Guarded.h"

#include <QScopedValueRollback>
#include <QtDebug>

#include <exception>

#include "forms/CaughtError.h"

namespace platform::qt {

namespace {

Desktop* told = nullptr;
bool telling = false;

} // namespace

Desktop* TellFailuresOn(Desktop* desktop) {
    return std::exchange(told, desktop);
}

void TellFailure() {
    if (told == nullptr) {
        throw;
    }
    if (telling) {
        LogFailure();
        return;
    }
    const QScopedValueRollback rollback(telling, true);
    try {
        TellCaught(*told);
    } catch (...) {
        LogFailure();
    }
}

void LogFailure() {
    try {
        throw;
    } catch (const std::exception& error) {
        qCritical("%s", error.what());
    } catch (...) {
        qCritical("Unknown failure");
    }
}

} // namespace platform::qt
