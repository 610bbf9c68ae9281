#include "memory/MemoryPrinters.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Units.h"

namespace memory {

using base::TwipsPerInch;

namespace {
constexpr double TenthsPerInch = 254; // of a millimetre
} // namespace

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

machine::PrinterCondition MemoryPrinters::Condition(int index) {
    const PrintQueue& queue = Queue(index);
    return {.Name = queue.Name,
            .Reachable = queue.Reachable,
            .Status = queue.Status,
            .DotsPerInch = queue.Dpi,
            .Imposed = queue.Imposed};
}

std::optional<machine::SheetArea> MemoryPrinters::SheetOf(int index, std::int16_t paper,
                                                          std::int16_t orientation) {
    const PrintQueue& queue = Queue(index);
    const auto found = std::find_if(queue.Papers.begin(), queue.Papers.end(),
                                    [&](const QueuePaper& one) { return one.Id == paper; });
    if (found == queue.Papers.end()) {
        return std::nullopt;
    }
    const auto twips = [&](int dots) { return dots * TwipsPerInch / queue.Dpi; };
    machine::SheetArea area;
    area.Width = found->Width * TwipsPerInch / TenthsPerInch;
    area.Height = found->Height * TwipsPerInch / TenthsPerInch;
    area.Left = twips(queue.Offset.X);
    area.Top = twips(queue.Offset.Y);
    area.Right = area.Width - twips(queue.Sheet.X - queue.Printable.X - queue.Offset.X);
    area.Bottom = area.Height - twips(queue.Sheet.Y - queue.Printable.Y - queue.Offset.Y);
    if (orientation == machine::Landscape) {
        std::swap(area.Width, area.Height);
        std::swap(area.Left, area.Top);
        std::swap(area.Right, area.Bottom);
    }
    return area;
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
