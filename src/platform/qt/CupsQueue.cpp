#include "platform/qt/CupsQueue.h"

#include "platform/qt/CupsJob.h"
#include "platform/qt/CupsStatus.h"
#include "platform/qt/PaperTable.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

namespace platform::qt {

namespace {

// Values of orientation-requested.
constexpr std::string_view IppPortrait = "3";
constexpr std::string_view IppLandscape = "4";
constexpr std::string_view IppReverseLandscape = "5";

constexpr unsigned long DiscoveredOnly = CUPS_PRINTER_DISCOVERED;

/// True for a printer that was seen on the network but has no queue here.
bool IsWithoutQueue(const CupsOptions& options) {
    return (std::strtoul(OptionValue(options, "printer-type").c_str(), nullptr, 10) & DiscoveredOnly) != 0;
}

struct Choice {
    const char* Option;
    std::string Value;
};

/// The options by which queues know a paper and a bin; some heed the one name, some the other.
std::vector<Choice> MediaChoices(const Paper* paper, const Bin* bin) {
    std::vector<Choice> choices;
    if (paper != nullptr) {
        choices.push_back({"PageSize", paper->PpdSize});
        choices.push_back({"media", paper->PwgMedia});
    }
    if (bin != nullptr) {
        choices.push_back({"InputSlot", bin->PpdSlot});
        choices.push_back({"media-source", bin->PwgSource});
    }
    std::erase_if(choices, [](const Choice& choice) { return choice.Value.empty(); });
    return choices;
}

template <class Item>
const Item* WithId(const std::vector<Item>& items, std::int16_t id) {
    const auto found =
        std::find_if(items.begin(), items.end(), [id](const Item& item) { return item.Id == id; });
    return found == items.end() ? nullptr : &*found;
}

} // namespace

FoundQueues FindCupsQueues() {
    FoundQueues found;
    const CupsConnection connection = ConnectCups();
    if (connection == nullptr) {
        return found;
    }
    const CupsDestinations destinations(connection.get());
    std::string preferred;
    for (const cups_dest_t& destination : destinations) {
        if (destination.is_default != 0) {
            preferred = destination.name;
        }
        const CupsOptions options = OptionsOf(destination);
        // An instance ("queue/draft") is a set of options for a queue that is listed without it too.
        if (destination.instance == nullptr && !IsWithoutQueue(options)) {
            found.Queues.push_back(std::make_unique<CupsQueue>(destination.name, options));
        }
    }
    for (std::size_t i = 0; i < found.Queues.size(); ++i) {
        if (found.Queues[i]->Name() == preferred) {
            found.Default = static_cast<int>(i);
        }
    }
    return found;
}

bool CupsQueue::Refresh() {
    const CupsConnection connection = ConnectCups();
    if (connection == nullptr) {
        return false;
    }
    std::optional<CupsOptions> options = QueueOptions(connection.get(), name_);
    if (!options) {
        return false;
    }
    known_ = std::move(*options);
    return true;
}

const CupsMedia& CupsQueue::Media() {
    if (media_.Papers.empty()) {
        if (const CupsConnection connection = ConnectCups()) {
            media_ = ReadCupsMedia(connection.get(), name_);
        }
    }
    return media_;
}

std::uint32_t CupsQueue::Status() {
    Refresh();
    return StatusBits(OptionValue(known_, "printer-state"), OptionValue(known_, "printer-state-reasons"),
                      OptionValue(known_, "printer-is-accepting-jobs"));
}

QueueSettings CupsQueue::ReadSettings() {
    Refresh();
    const CupsMedia& media = Media();
    QueueSettings settings{Portrait, media.DefaultPaper, media.DefaultBin, 1};

    // PageSize and InputSlot go first: the server gives its own `media` where the user has set none.
    const std::string size = OptionValue(known_, "PageSize");
    const std::string keyword = OptionValue(known_, "media");
    const auto paper = std::find_if(media.Papers.begin(), media.Papers.end(), [&](const Paper& each) {
        return size.empty() ? !keyword.empty() && (each.PwgMedia == keyword || each.PpdSize == keyword)
                            : each.PpdSize == size;
    });
    if (paper != media.Papers.end()) {
        settings.PaperId = paper->Id;
    }
    const std::string slot = OptionValue(known_, "InputSlot");
    const std::string source = OptionValue(known_, "media-source");
    const auto bin = std::find_if(media.Bins.begin(), media.Bins.end(), [&](const Bin& each) {
        return slot.empty() ? !source.empty() && each.PwgSource == source : each.PpdSlot == slot;
    });
    if (bin != media.Bins.end()) {
        settings.BinId = bin->Id;
    }
    const std::string orientation = OptionValue(known_, "orientation-requested");
    if (orientation == IppLandscape || orientation == IppReverseLandscape) {
        settings.Orientation = Landscape;
    }
    const long copies = std::strtol(OptionValue(known_, "copies").c_str(), nullptr, 10);
    settings.Copies = static_cast<std::int16_t>(std::clamp(copies, 1L, 9999L));
    return settings;
}

bool CupsQueue::WriteSettings(const QueueSettings& settings) {
    const QueueSettings stored = ReadSettings();
    if (settings == stored) {
        return true;
    }
    const CupsConnection connection = ConnectCups();
    if (connection == nullptr) {
        return false;
    }
    // All of them, as the user's file is written anew with what the list holds.
    CupsDestinations destinations(connection.get());
    cups_dest_t* mine = cupsGetDest(name_.c_str(), nullptr, destinations.Count(), destinations.begin());
    if (mine == nullptr) {
        return false;
    }
    const Paper* paper =
        settings.PaperId == stored.PaperId ? nullptr : WithId(media_.Papers, settings.PaperId);
    const Bin* bin = settings.BinId == stored.BinId ? nullptr : WithId(media_.Bins, settings.BinId);
    std::vector<Choice> choices = MediaChoices(paper, bin);
    if (settings.Orientation != stored.Orientation) {
        choices.push_back({"orientation-requested",
                           std::string(settings.Orientation == Landscape ? IppLandscape : IppPortrait)});
    }
    for (const Choice& choice : choices) {
        mine->num_options =
            cupsAddOption(choice.Option, choice.Value.c_str(), mine->num_options, &mine->options);
    }
    return cupsSetDests2(connection.get(), destinations.Count(), destinations.begin()) == 0;
}

std::unique_ptr<PrintJob> CupsQueue::BeginJob(const std::string& title, const Paper& paper, const Bin* bin) {
    Refresh();
    CupsOptions options = known_; // the server adds the user's own to no job
    for (const Choice& choice : MediaChoices(&paper, bin)) {
        options[choice.Option] = choice.Value;
    }
    return std::make_unique<CupsJob>(name_, title, options);
}

} // namespace platform::qt
