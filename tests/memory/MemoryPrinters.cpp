#include "memory/MemoryPrinters.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"

namespace memory {

PrintQueue& MemoryPrinters::Install(PrintQueue queue) {
    return queues_.emplace_back(std::move(queue));
}

int MemoryPrinters::Count() {
    recorder_.RaiseFailure("Printers", base::ErrorPrinter, "Printer error");
    return static_cast<int>(queues_.size());
}

machine::PrinterEntry MemoryPrinters::Item(int index) {
    recorder_.RaiseFailure("Item", base::ErrorPrinter, "Printer error");
    const PrintQueue& queue = Queue(index);
    return {queue.Name, queue.Port};
}

PrintQueue& MemoryPrinters::Queue(int index) {
    if (index < 0 || index >= static_cast<int>(queues_.size())) {
        throw base::SubscriptOutOfRange();
    }
    return queues_[static_cast<std::size_t>(index)];
}

PrintQueue* MemoryPrinters::Find(const std::string& name) {
    const auto found = std::find_if(queues_.begin(), queues_.end(),
                                    [&](const PrintQueue& queue) { return queue.Name == name; });
    return found == queues_.end() ? nullptr : &*found;
}

} // namespace memory
