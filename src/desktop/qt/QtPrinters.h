#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/cups/PrintQueue.h"
#include "desktop/qt/PdfPrinter.h"
#include "machine/Printer.h"

namespace desktop::qt {

using QueueFinder = std::function<cups::FoundQueues()>;

/// The printers of this machine: the queues of its print server, then the PDF printer. Without a server the
/// PDF printer is the only one.
class QtPrinters : public machine::Printers {
  public:
    explicit QtPrinters(std::unique_ptr<PdfPrinter> pdf = std::make_unique<PdfPrinter>());
    QtPrinters(std::unique_ptr<PdfPrinter> pdf, QueueFinder find);

    int Count() override;
    machine::PrinterEntry Item(int index) override;
    /// Asks the server anew. If it does not answer the printers stay those that they were.
    void Refresh() override;

    /// ErrorSubscriptOutOfRange outside 0 to Count() - 1.
    cups::PrintQueue& Queue(int index) { return *Share(index); }
    /// The same, for one who holds it beyond a refresh.
    std::shared_ptr<cups::PrintQueue> Share(int index);
    /// Nothing if no printer has this name.
    cups::PrintQueue* Find(const std::string& name);
    /// Index of the user's default printer, else of the PDF printer.
    int DefaultIndex();

  private:
    void Load();

    std::shared_ptr<PdfPrinter> pdf_;
    QueueFinder find_;
    std::vector<std::shared_ptr<cups::PrintQueue>> queues_;
    int default_ = -1;
};

} // namespace desktop::qt
