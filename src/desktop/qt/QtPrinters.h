#pragma once

#include "machine/Printer.h"
#include "desktop/qt/PdfPrinter.h"
#include "desktop/cups/PrintQueue.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform::qt {

using QueueFinder = std::function<FoundQueues()>;

/// The printers of this machine: the queues of its print server, then the PDF printer. Without a server the
/// PDF printer is the only one.
class QtPrinters : public Printers {
  public:
    explicit QtPrinters(std::unique_ptr<PdfPrinter> pdf = std::make_unique<PdfPrinter>());
    QtPrinters(std::unique_ptr<PdfPrinter> pdf, QueueFinder find);

    int Count() override;
    PrinterEntry Item(int index) override;
    /// Asks the server anew. If it does not answer the printers stay those that they were.
    void Refresh() override;

    /// ErrorSubscriptOutOfRange outside 0 to Count() - 1.
    PrintQueue& Queue(int index) { return *Share(index); }
    /// The same, for one who holds it beyond a refresh.
    std::shared_ptr<PrintQueue> Share(int index);
    /// Nothing if no printer has this name.
    PrintQueue* Find(const std::string& name);
    /// Index of the user's default printer, else of the PDF printer.
    int DefaultIndex();

  private:
    void Load();

    std::shared_ptr<PdfPrinter> pdf_;
    QueueFinder find_;
    std::vector<std::shared_ptr<PrintQueue>> queues_;
    int default_ = -1;
};

} // namespace platform::qt
