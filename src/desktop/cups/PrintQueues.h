#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/cups/PrintQueue.h"
#include "machine/Printer.h"

namespace desktop::cups {

using QueueFinder = std::function<FoundQueues()>;

/// The printers of this machine: the queues of its print server, and behind them one that the desktop has of
/// its own. Without a server that one is alone.
class PrintQueues : public machine::Printers {
  public:
    PrintQueues(QueueFinder find, std::shared_ptr<PrintQueue> own);

    int Count() override;
    machine::PrinterEntry Item(int index) override;
    /// Asks the server anew. If it does not answer the printers stay those that they were.
    void Refresh() override;
    machine::PrinterCondition Condition(int index) override { return Queue(index).Condition(); }
    std::optional<machine::SheetArea> SheetOf(int index, std::int16_t paper,
                                              std::int16_t orientation) override;

    /// ErrorSubscriptOutOfRange outside 0 to Count() - 1.
    PrintQueue& Queue(int index) { return *Share(index); }
    /// The same, for one who holds it beyond a refresh.
    std::shared_ptr<PrintQueue> Share(int index);
    /// Nothing if no printer has this name.
    PrintQueue* Find(const std::string& name);
    /// Index of the user's default printer, else of the desktop's own.
    int DefaultIndex();

  private:
    void Load();

    QueueFinder find_;
    std::shared_ptr<PrintQueue> own_;
    std::vector<std::shared_ptr<PrintQueue>> queues_;
    int default_ = -1;
};

} // namespace desktop::cups
