#include "forms/CaughtError.h"

#include <exception>
#include <new>

#include "forms/Desktop.h"
#include "base/RuntimeError.h"

namespace platform {

namespace {

constexpr int InternalError = 51;

} // namespace

std::string UnhandledErrorText(const RuntimeError& error) {
    return "Fout " + std::to_string(error.Number()) + ":\n\n" + error.Description();
}

void TellCaught(Desktop& desktop) {
    desktop.SetMousePointer(PointerDefault); // whatever was under way has broken off
    try {
        throw;
    } catch (const RuntimeError& error) {
        desktop.UnhandledError(error);
    } catch (const std::bad_alloc&) {
        desktop.UnhandledError(OutOfMemory());
    } catch (const std::exception& error) {
        desktop.UnhandledError(RuntimeError(InternalError, error.what()));
    }
}

} // namespace platform
