#include "platform/qt/CupsQueue.h"

#include "platform/qt/CupsJob.h"
#include "platform/qt/CupsStatus.h"
#include "platform/qt/PaperTable.h"

#include <QTemporaryFile>

#include <algorithm>
#include <array>
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

/// A change within the same second leaves no mark on printer-config-change-time.
constexpr long UnsettledSeconds = 2;

/// What a list of queues is to tell of each.
constexpr std::array<const char*, 6> ListAttributes = {
    "printer-name", "printer-uri-supported",  "printer-type", "printer-info",
    "device-uri",   "printer-make-and-model",
};
/// What one queue is to tell besides.
constexpr std::array<const char*, 11> StateAttributes = {
    "printer-state",     "printer-state-reasons",      "copies-default",  "printer-is-accepting-jobs",
    "printer-up-time",   "printer-config-change-time", "media-default",   "orientation-requested-default",
    "media-col-default", "media-source-supported",     "media-supported",
};

long NumberOf(const CupsAttributes& attributes, const std::string& name) {
    return std::strtol(ValueOf(attributes, name).c_str(), nullptr, 10);
}

/// True for a printer that was seen on the network but has no queue here.
bool IsWithoutQueue(const CupsAttributes& attributes) {
    return (static_cast<unsigned long>(NumberOf(attributes, "printer-type")) & DiscoveredOnly) != 0;
}

IppMessage RequestFor(ipp_op_t operation, const std::string& uri) {
    IppMessage request = NewRequest(operation, uri);
    std::vector<const char*> wanted(ListAttributes.begin(), ListAttributes.end());
    if (operation == IPP_OP_GET_PRINTER_ATTRIBUTES) {
        wanted.insert(wanted.end(), StateAttributes.begin(), StateAttributes.end());
    }
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_CONST_TAG(IPP_TAG_KEYWORD), "requested-attributes",
                  static_cast<int>(wanted.size()), nullptr, wanted.data());
    return request;
}

/// The first attribute of the next queue in an answer.
ipp_attribute_t* NextQueue(ipp_t* answer, ipp_attribute_t* at) {
    while (at != nullptr && ippGetGroupTag(at) != IPP_TAG_PRINTER) {
        at = ippNextAttribute(answer);
    }
    return at;
}

/// Media by the attributes and by the PPD, if the server has one for the queue; nothing if it does not
/// answer.
std::optional<CupsMedia> ReadMedia(CupsServer& server, ipp_t* attributes, const std::string& uri) {
    const CupsConnection connection = server.Connect();
    QTemporaryFile ppd;
    if (connection == nullptr || !ppd.open()) {
        return std::nullopt;
    }
    const std::string resource = ResourceOf(uri) + ".ppd";
    const http_status_t status = cupsGetFd(connection.get(), resource.c_str(), ppd.handle());
    if (status == HTTP_STATUS_ERROR) {
        return std::nullopt;
    }
    return MediaOfQueue(attributes, status == HTTP_STATUS_OK ? ppd.fileName().toStdString() : "");
}

/// The name of the queue that the user prefers, or an empty text.
std::string PreferredQueue(CupsServer& server) {
    const CupsConnection connection = server.Connect();
    const char* const name = connection == nullptr ? nullptr : cupsGetDefault2(connection.get());
    return name == nullptr ? "" : name;
}

/// The options by which queues know a paper and a bin; some heed the one name, some the other. An empty value
/// is an option that the queue does not have.
CupsOptions PaperOptions(const Paper& paper) {
    return {{"PageSize", paper.PpdSize}, {"media", paper.PwgMedia}};
}

CupsOptions BinOptions(const Bin& bin) {
    return {{"InputSlot", bin.PpdSlot}, {"media-source", bin.PwgSource}};
}

template <class Item>
const Item* WithId(const std::vector<Item>& items, std::int16_t id) {
    const auto found =
        std::find_if(items.begin(), items.end(), [id](const Item& item) { return item.Id == id; });
    return found == items.end() ? nullptr : &*found;
}

const Paper* PaperIn(const CupsMedia& media, const CupsOptions& options) {
    const std::string size = ValueOf(options, "PageSize");
    const std::string keyword = ValueOf(options, "media");
    const auto found = std::find_if(media.Papers.begin(), media.Papers.end(), [&](const Paper& each) {
        return size.empty() ? !keyword.empty() && (each.PwgMedia == keyword || each.PpdSize == keyword)
                            : each.PpdSize == size;
    });
    return found == media.Papers.end() ? nullptr : &*found;
}

const Bin* BinIn(const CupsMedia& media, const CupsOptions& options) {
    const std::string slot = ValueOf(options, "InputSlot");
    const std::string source = ValueOf(options, "media-source");
    const auto found = std::find_if(media.Bins.begin(), media.Bins.end(), [&](const Bin& each) {
        return slot.empty() ? !source.empty() && each.PwgSource == source : each.PpdSlot == slot;
    });
    return found == media.Bins.end() ? nullptr : &*found;
}

} // namespace

FoundQueues FindCupsQueues(const std::shared_ptr<CupsServer>& server) {
    FoundQueues found;
    CupsConnection connection = server->Connect();
    if (connection == nullptr) {
        return found;
    }
    const IppMessage answer = Ask(connection.get(), RequestFor(IPP_OP_CUPS_GET_PRINTERS, ""));
    // A server without queues says that it finds none.
    found.Answered = answer != nullptr || cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND;
    if (answer == nullptr) {
        return found;
    }
    connection.reset();
    const std::string preferred = PreferredQueue(*server);
    ipp_attribute_t* at = NextQueue(answer.get(), ippFirstAttribute(answer.get()));
    while (at != nullptr) {
        CupsAttributes attributes = ReadAttributes(answer.get(), at);
        at = NextQueue(answer.get(), at);
        if (IsWithoutQueue(attributes)) {
            continue;
        }
        found.Queues.push_back(std::make_unique<CupsQueue>(server, std::move(attributes)));
        if (found.Queues.back()->Name() == preferred) {
            found.Default = static_cast<int>(found.Queues.size()) - 1;
        }
    }
    return found;
}

CupsQueue::CupsQueue(std::shared_ptr<CupsServer> server, CupsAttributes attributes)
    : server_(std::move(server)), name_(ValueOf(attributes, "printer-name")),
      uri_(ValueOf(attributes, "printer-uri-supported")), known_(std::move(attributes)) {}

bool CupsQueue::HasNewMedia(const CupsAttributes& attributes) const {
    constexpr const char* Changed = "printer-config-change-time";
    const std::string changed = ValueOf(attributes, Changed);
    return media_.Papers.empty() || changed.empty() || changed != ValueOf(known_, Changed) ||
           NumberOf(attributes, "printer-up-time") - NumberOf(attributes, Changed) < UnsettledSeconds;
}

bool CupsQueue::Refresh() {
    isAsked_ = true;
    CupsConnection connection = server_->Connect();
    if (connection == nullptr) {
        return false;
    }
    const IppMessage answer = Ask(connection.get(), RequestFor(IPP_OP_GET_PRINTER_ATTRIBUTES, uri_));
    if (answer == nullptr) {
        return false;
    }
    ipp_attribute_t* at = NextQueue(answer.get(), ippFirstAttribute(answer.get()));
    CupsAttributes attributes = ReadAttributes(answer.get(), at);
    if (HasNewMedia(attributes)) {
        connection.reset();
        std::optional<CupsMedia> media = ReadMedia(*server_, answer.get(), uri_);
        if (!media) {
            return false;
        }
        KeepNumbers(*media, numbers_);
        media_ = std::move(*media);
    }
    known_ = std::move(attributes);
    return true;
}

const CupsMedia& CupsQueue::Media() {
    if (!isAsked_) {
        Refresh();
    }
    return media_;
}

std::uint32_t CupsQueue::Status() {
    Refresh();
    return StatusBits(ValueOf(known_, "printer-state"), ValueOf(known_, "printer-state-reasons"),
                      ValueOf(known_, "printer-is-accepting-jobs"));
}

QueueSettings CupsQueue::ReadSettings() {
    Refresh();
    QueueSettings settings{Portrait, media_.DefaultPaper, media_.DefaultBin, 1};
    const CupsOptions options = server_->Defaults().Options(name_);
    if (const Paper* paper = PaperIn(media_, options)) {
        settings.PaperId = paper->Id;
    }
    if (const Bin* bin = BinIn(media_, options)) {
        settings.BinId = bin->Id;
    }
    const auto optionOrPreset = [&](const std::string& name) {
        const std::string own = ValueOf(options, name);
        return own.empty() ? ValueOf(known_, name + "-default") : own;
    };
    const std::string orientation = optionOrPreset("orientation-requested");
    if (orientation == IppLandscape || orientation == IppReverseLandscape) {
        settings.Orientation = Landscape;
    }
    const long copies = std::strtol(optionOrPreset("copies").c_str(), nullptr, 10);
    settings.Copies = static_cast<std::int16_t>(std::clamp(copies, 1L, 9999L));
    return settings;
}

bool CupsQueue::WriteSettings(const QueueSettings& settings) {
    const QueueSettings stored = ReadSettings();
    if (settings == stored) {
        return true;
    }
    UserDefaults& defaults = server_->Defaults();
    if (settings == defaults.Before(name_)) {
        return defaults.PutBack(name_);
    }
    CupsOptions changes;
    if (const Paper* paper = WithId(media_.Papers, settings.PaperId);
        paper != nullptr && settings.PaperId != stored.PaperId) {
        changes.merge(PaperOptions(*paper));
    }
    if (const Bin* bin = WithId(media_.Bins, settings.BinId);
        bin != nullptr && settings.BinId != stored.BinId) {
        changes.merge(BinOptions(*bin));
    }
    if (settings.Orientation != stored.Orientation) {
        changes["orientation-requested"] = settings.Orientation == Landscape ? IppLandscape : IppPortrait;
    }
    return defaults.Change(name_, stored, changes);
}

std::unique_ptr<PrintJob> CupsQueue::BeginJob(const std::string& title, const Paper& paper, const Bin* bin) {
    CupsOptions options = PaperOptions(paper);
    if (bin != nullptr) {
        options.merge(BinOptions(*bin));
    }
    const CupsOptions names = options;
    options.merge(server_->Defaults().Options(name_)); // the server adds the user's own to no job
    std::erase_if(options, [&names](const auto& option) {
        return option.second.empty() && names.contains(option.first);
    });
    return std::make_unique<CupsJob>(server_, name_, uri_, title, options);
}

} // namespace platform::qt
