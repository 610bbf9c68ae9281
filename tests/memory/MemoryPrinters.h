#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "machine/Printer.h"
#include "memory/PrintQueue.h"
#include "memory/Recorder.h"

namespace memory {

/// The printers that a test has installed. The first one is the system's default.
class MemoryPrinters final : public machine::Printers {
  public:
    explicit MemoryPrinters(Recorder& recorder) : recorder_(recorder) {}

    PrintQueue& Install(PrintQueue queue);

    bool Empty() const { return queues_.empty(); }

    int Count() override;
    machine::PrinterEntry Item(int index) override;
    machine::PrinterCondition Condition(int index) override;
    /// Within the margins of the queue's own sheet, whatever the paper's size.
    std::optional<machine::SheetArea> SheetOf(int index, std::int16_t paper,
                                              std::int16_t orientation) override;

    /// The printer's own record; ErrorSubscriptOutOfRange outside 0 to Count() - 1.
    PrintQueue& Queue(int index);
    /// By the exact name; nullptr if there is none.
    PrintQueue* Find(const std::string& name);

  private:
    Recorder& recorder_;
    std::deque<PrintQueue> queues_; // references stay good while printers are added
};

} // namespace memory
