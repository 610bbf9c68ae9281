#include "memory/MemoryPlatform.h"

#include <utility>

namespace memory {

MemoryPlatform::MemoryPlatform() {
    registry.ShouldFail = [this](const char* call) { return recorder.TakeFailure(call); };
    registry.OnWrite = [this](const std::string& path, const std::string& name, const std::string& value,
                              bool ok) {
        recorder.Record({"store", {{"path", path}, {"name", name}, {"value", value}, {"ok", ok}}});
    };
}

PrintQueue& MemoryPlatform::InstallPrinter(PrintQueue queue) {
    const bool first = printers.Empty();
    PrintQueue& installed = printers.Install(std::move(queue));
    if (first) {
        printer.TakeDefault();
    }
    return installed;
}

} // namespace memory
