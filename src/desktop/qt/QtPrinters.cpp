#include "desktop/qt/QtPrinters.h"

#include "base/RuntimeError.h"
#include "desktop/cups/CupsQueue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace platform::qt {

QtPrinters::QtPrinters(std::unique_ptr<PdfPrinter> pdf)
    : QtPrinters(std::move(pdf),
                 [server = std::make_shared<CupsServer>()] { return FindCupsQueues(server); }) {}

QtPrinters::QtPrinters(std::unique_ptr<PdfPrinter> pdf, QueueFinder find)
    : pdf_(std::move(pdf)), find_(std::move(find)) {}

void QtPrinters::Load() {
    if (queues_.empty()) {
        Refresh();
    }
}

void QtPrinters::Refresh() {
    FoundQueues found = find_();
    if (!found.Answered && !queues_.empty()) {
        return;
    }
    queues_.clear();
    std::move(found.Queues.begin(), found.Queues.end(), std::back_inserter(queues_));
    queues_.push_back(pdf_);
    const int last = static_cast<int>(queues_.size()) - 1;
    default_ = found.Default >= 0 && found.Default < last ? found.Default : last;
}

int QtPrinters::Count() {
    Load();
    return static_cast<int>(queues_.size());
}

PrinterEntry QtPrinters::Item(int index) {
    PrintQueue& queue = Queue(index);
    return {queue.Name(), queue.Port()};
}

std::shared_ptr<PrintQueue> QtPrinters::Share(int index) {
    if (index < 0 || index >= Count()) {
        throw RuntimeError(ErrorSubscriptOutOfRange, "Deze printer bestaat niet.");
    }
    return queues_[static_cast<std::size_t>(index)];
}

PrintQueue* QtPrinters::Find(const std::string& name) {
    Load();
    const auto found = std::find_if(queues_.begin(), queues_.end(),
                                    [&name](const auto& queue) { return queue->Name() == name; });
    return found == queues_.end() ? nullptr : found->get();
}

int QtPrinters::DefaultIndex() {
    Load();
    return default_;
}

} // namespace platform::qt
