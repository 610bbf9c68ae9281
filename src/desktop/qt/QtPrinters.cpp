#include "desktop/qt/QtPrinters.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/RuntimeError.h"
#include "desktop/cups/CupsQueue.h"
#include "desktop/qt/QtText.h"

namespace desktop::qt {

namespace {

/// Dutch as far as the toolkit's texts are, whatever language the system speaks.
std::string SystemReason(int error) {
    return FromQString(qt_error_string(error));
}

} // namespace

QtPrinters::QtPrinters(std::unique_ptr<PdfPrinter> pdf)
    : QtPrinters(std::move(pdf), [server = std::make_shared<cups::CupsServer>(SystemReason)] {
          return cups::FindCupsQueues(server);
      }) {}

QtPrinters::QtPrinters(std::unique_ptr<PdfPrinter> pdf, QueueFinder find)
    : pdf_(std::move(pdf)), find_(std::move(find)) {}

void QtPrinters::Load() {
    if (queues_.empty()) {
        Refresh();
    }
}

void QtPrinters::Refresh() {
    cups::FoundQueues found = find_();
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

machine::PrinterEntry QtPrinters::Item(int index) {
    cups::PrintQueue& queue = Queue(index);
    return {queue.Name(), queue.Port()};
}

std::shared_ptr<cups::PrintQueue> QtPrinters::Share(int index) {
    if (index < 0 || index >= Count()) {
        throw base::RuntimeError(base::ErrorSubscriptOutOfRange, "Deze printer bestaat niet.");
    }
    return queues_[static_cast<std::size_t>(index)];
}

cups::PrintQueue* QtPrinters::Find(const std::string& name) {
    Load();
    const auto found = std::find_if(queues_.begin(), queues_.end(),
                                    [&name](const auto& queue) { return queue->Name() == name; });
    return found == queues_.end() ? nullptr : found->get();
}

int QtPrinters::DefaultIndex() {
    Load();
    return default_;
}

} // namespace desktop::qt
