#include "desktop/cups/PrintQueues.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "desktop/cups/TurnedSheet.h"
#include "machine/PrinterErrors.h"

namespace desktop::cups {

PrintQueues::PrintQueues(QueueFinder find, std::shared_ptr<PrintQueue> own)
    : find_(std::move(find)), own_(std::move(own)) {}

void PrintQueues::Load() {
    if (queues_.empty()) {
        Refresh();
    }
}

void PrintQueues::Refresh() {
    FoundQueues found = find_();
    if (!found.Answered && !queues_.empty()) {
        return;
    }
    queues_.clear();
    std::move(found.Queues.begin(), found.Queues.end(), std::back_inserter(queues_));
    queues_.push_back(own_);
    const int last = static_cast<int>(queues_.size()) - 1;
    default_ = found.Default >= 0 && found.Default < last ? found.Default : last;
}

int PrintQueues::Count() {
    Load();
    return static_cast<int>(queues_.size());
}

machine::PrinterEntry PrintQueues::Item(int index) {
    PrintQueue& queue = Queue(index);
    return {queue.Name(), queue.Port()};
}

std::optional<machine::SheetArea> PrintQueues::SheetOf(int index, std::int16_t paper,
                                                       std::int16_t orientation) {
    const std::vector<Paper>& papers = Queue(index).KnownPapers();
    const auto found =
        std::find_if(papers.begin(), papers.end(), [paper](const Paper& each) { return each.Id == paper; });
    if (found == papers.end() || found->StandIn) {
        return std::nullopt; // of a stand-in nobody knows what lies in the printer
    }
    const TurnedSheet sheet = Turned(*found, orientation);
    return machine::SheetArea{.Width = sheet.Width,
                              .Height = sheet.Height,
                              .Left = sheet.Left,
                              .Top = sheet.Top,
                              .Right = sheet.Width - sheet.Right,
                              .Bottom = sheet.Height - sheet.Bottom};
}

std::shared_ptr<PrintQueue> PrintQueues::Share(int index) {
    if (index < 0 || index >= Count()) {
        throw machine::NoSuchPrinter();
    }
    return queues_[static_cast<std::size_t>(index)];
}

PrintQueue* PrintQueues::Find(const std::string& name) {
    Load();
    const auto found = std::find_if(queues_.begin(), queues_.end(),
                                    [&name](const auto& queue) { return queue->Name() == name; });
    return found == queues_.end() ? nullptr : found->get();
}

int PrintQueues::DefaultIndex() {
    Load();
    return default_;
}

} // namespace desktop::cups
