#include "forms/CaughtError.h"

#include <exception>
#include <new>

#include "base/RuntimeError.h"
#include "forms/Desktop.h"

namespace forms {

namespace {

constexpr int InternalError = 51;

} // namespace

std::string UnhandledErrorText(const base::RuntimeError& error) {
    return "Fout " + std::to_string(error.Number()) + ":\n\n" + error.Description();
}

void TellCaught(Desktop& desktop) {
    desktop.HourglassOff(); // whatever was under way has broken off
    try {
        throw;
    } catch (const base::RuntimeError& error) {
        desktop.UnhandledError(error);
    } catch (const std::bad_alloc&) {
        desktop.UnhandledError(base::OutOfMemory());
    } catch (const std::exception& error) {
        desktop.UnhandledError(base::RuntimeError(InternalError, error.what()));
    }
}

} // namespace forms
