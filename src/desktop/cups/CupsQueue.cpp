#include "desktop/cups/CupsQueue.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"
#include "desktop/cups/AsciiCase.h"
#include "desktop/cups/CupsChoice.h"
#include "desktop/cups/CupsJob.h"
#include "desktop/cups/CupsStatus.h"
#include "desktop/cups/PaperTable.h"
#include "desktop/cups/PpdFile.h"
#include "desktop/cups/QueueDefaults.h"

namespace desktop::cups {

namespace {

// Values of orientation-requested.
constexpr std::string_view IppLandscape = "4";
constexpr std::string_view IppReverseLandscape = "5";

constexpr unsigned long DiscoveredOnly = CUPS_PRINTER_DISCOVERED;
constexpr unsigned long ServersDefault = CUPS_PRINTER_DEFAULT;

/// An action of the user asks a queue many times over, and this is longer than it goes without a new answer.
constexpr std::chrono::milliseconds MomentAgo{2000};

/// A change within the same second leaves no mark on printer-config-change-time.
constexpr long UnsettledSeconds = 2;

/// What a list of queues is to tell of each.
constexpr std::array<const char*, 9> ListAttributes = {
    "printer-name",
    "printer-uri-supported",
    "printer-type",
    "printer-info",
    "device-uri",
    "printer-make-and-model",
    "printer-state",
    "printer-state-reasons",
    "printer-is-accepting-jobs",
};
/// What one queue is to tell besides.
constexpr std::array<const char*, 11> StateAttributes = {
    "job-sheets-default",   "printer-resolution-default", "copies-default",
    "printer-up-time",      "printer-config-change-time", "media-default",
    "media-col-default",    "media-source-supported",     "media-supported",
    "media-size-supported", "media-col-database",
};

long NumberOf(const CupsAttributes& attributes, const std::string& name) {
    return std::strtol(ValueOf(attributes, name).c_str(), nullptr, 10);
}

bool IsOfType(const CupsAttributes& attributes, unsigned long bit) {
    return (static_cast<unsigned long>(NumberOf(attributes, "printer-type")) & bit) != 0;
}

IppMessage RequestFor(ipp_op_t operation, const std::string& uri) {
    IppMessage request = NewRequest(operation, uri);
    std::vector<const char*> wanted(ListAttributes.begin(), ListAttributes.end());
    if (operation == IPP_OP_GET_PRINTER_ATTRIBUTES) {
        wanted.insert(wanted.end(), StateAttributes.begin(), StateAttributes.end());
        const std::vector<const char*> forJobs = AttributesForJobs();
        wanted.insert(wanted.end(), forJobs.begin(), forJobs.end());
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
    const CupsConnection connection = server.ConnectForFile();
    PpdFile ppd;
    if (connection == nullptr || !ppd.Fetch(connection.get(), ResourceOf(uri) + ".ppd")) {
        return std::nullopt;
    }
    return MediaOfQueue(attributes, ppd.Name());
}

/// The queue that a variable of the environment names, without the instance that may stand behind it.
std::string QueueFrom(const char* variable) {
    const char* const value = std::getenv(variable);
    const std::string name = value != nullptr ? value : "";
    return name.substr(0, name.find('/'));
}

/// The queue that the user prefers, by the environment or the user's own defaults; empty if they name none.
std::string PreferredQueue(const UserDefaults& defaults) {
    std::string name = QueueFrom("LPDEST");
    if (name.empty()) {
        name = QueueFrom("PRINTER");
        name = name == "lp" ? "" : name; // a device in old systems
    }
    return name.empty() ? defaults.PreferredQueue() : name;
}

template <class Item>
const Item* WithId(const std::vector<Item>& items, std::int16_t id) {
    const auto found =
        std::find_if(items.begin(), items.end(), [id](const Item& item) { return item.Id == id; });
    return found == items.end() ? nullptr : &*found;
}

} // namespace

FoundQueues FindCupsQueues(const std::shared_ptr<CupsServer>& server) {
    FoundQueues found;
    IppMessage answer;
    // Once more where the connection fails, unless that took all patience: for want of a list the program
    // would take the PDF printer for the user's, now and at the next start.
    constexpr int most = 2;
    for (int tries = 0; !found.Answered && tries < most; ++tries) {
        const CupsConnection connection = server->Connect();
        if (connection != nullptr) {
            answer = Ask(connection.get(), RequestFor(IPP_OP_CUPS_GET_PRINTERS, ""));
            // A server without queues says that it finds none.
            found.Answered = answer != nullptr || cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND;
        }
    }
    if (found.Answered) {
        server->NoteAnswer();
    }
    if (answer == nullptr) {
        return found;
    }
    const std::string preferred = PreferredQueue(server->Defaults());
    int serversDefault = -1;
    ipp_attribute_t* at = NextQueue(answer.get(), ippFirstAttribute(answer.get()));
    while (at != nullptr) {
        CupsAttributes attributes = ReadAttributes(answer.get(), at);
        at = NextQueue(answer.get(), at);
        if (IsOfType(attributes, DiscoveredOnly)) { // seen on the network, but without a queue here
            continue;
        }
        const int index = static_cast<int>(found.Queues.size());
        if (IsOfType(attributes, ServersDefault)) {
            serversDefault = index;
        }
        found.Queues.push_back(std::make_unique<CupsQueue>(server, std::move(attributes)));
        if (Lower(found.Queues.back()->Name()) == Lower(preferred)) {
            found.Default = index;
        }
    }
    if (found.Default < 0) {
        found.Default = serversDefault;
    }
    return found;
}

CupsQueue::CupsQueue(std::shared_ptr<CupsServer> server, CupsAttributes attributes)
    : server_(std::move(server)), name_(ValueOf(attributes, "printer-name")),
      uri_(ValueOf(attributes, "printer-uri-supported")), known_(std::move(attributes)) {}

bool CupsQueue::HasNewMedia(const CupsAttributes& attributes) const {
    constexpr const char* changeTime = "printer-config-change-time";
    const std::string changed = ValueOf(attributes, changeTime);
    return media_.Papers.empty() || changed.empty() || changed != ValueOf(known_, changeTime) ||
           NumberOf(attributes, "printer-up-time") - NumberOf(attributes, changeTime) < UnsettledSeconds;
}

bool CupsQueue::Reachable() {
    const bool isFresh = answered_ && std::chrono::steady_clock::now() - *answered_ < MomentAgo &&
                         !server_->HasFailedSince(*answered_);
    return isFresh || Refresh();
}

bool CupsQueue::Refresh() {
    isAsked_ = true;
    answered_.reset();
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
        media_ = std::move(*media);
    }
    OfferOwnSheet(media_, OwnSizeIn(server_->Defaults().Options(name_)));
    KeepNumbers(media_, server_->Numbers(name_));
    known_ = std::move(attributes);
    server_->Told(name_) = {media_, known_};
    answered_ = std::chrono::steady_clock::now();
    server_->NoteAnswer();
    return true;
}

const CupsMedia& CupsQueue::Media() {
    if (!isAsked_) {
        Refresh();
    }
    return media_;
}

std::uint32_t CupsQueue::Status() {
    Media(); // has asked once at least
    return KnownStatus();
}

machine::PrinterCondition CupsQueue::Condition() {
    machine::PrinterCondition condition;
    condition.Name = name_;
    condition.Reachable = (answered_ || !isAsked_) && !server_->IsSilent();
    condition.Status = KnownStatus();
    const ToldByQueue& told = server_->Told(name_);
    const CupsOptions own = server_->Defaults().Options(name_);
    condition.DotsPerInch = DotsPerInchOf(told.Media, own, told.Attributes);
    condition.Imposed = ImposedOn(told.Media, own, told.Attributes);
    return condition;
}

std::uint32_t CupsQueue::KnownStatus() const {
    return StatusBits(ValueOf(known_, "printer-state"), ValueOf(known_, "printer-state-reasons"),
                      ValueOf(known_, "printer-is-accepting-jobs"));
}

QueueSettings CupsQueue::SettingsByFiles() {
    const CupsOptions options = server_->Defaults().Options(name_);
    const CupsMedia& media = Media();
    QueueSettings settings{Portrait, media.DefaultPaper, media.DefaultBin, 1};
    if (const Paper* paper = PaperIn(media, options)) {
        settings.PaperId = paper->Id;
    }
    if (const Bin* bin = BinIn(media, options)) {
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

QueueSettings CupsQueue::ReadSettings() {
    const QueueSettings byFiles = SettingsByFiles();
    return server_->Chosen(name_).Over(byFiles, media_.Papers, media_.Bins);
}

void CupsQueue::WriteSettings(const QueueSettings& settings) {
    server_->Chosen(name_).Write(settings, SettingsByFiles());
}

CupsOptions CupsQueue::OptionsFor(const Paper& paper, const Bin* bin) const {
    // The bin may be one of a list that the queue no longer has.
    const Bin* const named = bin != nullptr ? bin : WithId(media_.Bins, media_.DefaultBin);
    // The server adds the user's own options to no job.
    return JobOptions(media_, server_->Defaults().Options(name_), known_, paper, named);
}

std::unique_ptr<PrintJob> CupsQueue::BeginJob(const std::string& title, const Paper& paper, const Bin* bin) {
    return std::make_unique<CupsJob>(server_, name_, uri_, title, OptionsFor(paper, bin));
}

} // namespace desktop::cups
