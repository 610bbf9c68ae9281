#include "desktop/qt/Guarded.h"

#include <exception>

#include <QScopedValueRollback>
#include <QtDebug>

#include "forms/CaughtError.h"

namespace desktop::qt {

namespace {

forms::Desktop* told = nullptr;
bool telling = false;

} // namespace

forms::Desktop* TellFailuresOn(forms::Desktop* desktop) {
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
        forms::TellCaught(*told);
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

} // namespace desktop::qt
