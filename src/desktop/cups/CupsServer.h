#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <cups/cups.h>

#include "desktop/cups/CupsMedia.h"
#include "desktop/cups/SpoolFile.h"
#include "desktop/cups/StoredChoice.h"
#include "desktop/cups/UserDefaults.h"

namespace desktop::cups {

class CupsServer;

/// Ends a connection, and tells the server's object how long the answer was in coming.
struct CloseHttp {
    CupsServer* Server = nullptr;
    std::chrono::steady_clock::time_point Begun;
    bool ForDocument = false;

    void operator()(http_t* http) const;
};
/// A connection with the print server; empty if it does not answer.
using CupsConnection = std::unique_ptr<http_t, CloseHttp>;

struct FreeIpp {
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using IppMessage = std::unique_ptr<ipp_t, FreeIpp>;

/// What a queue has told last, for as long as the program runs.
struct ToldByQueue {
    CupsMedia Media;
    std::map<std::string, std::string> Attributes;
};

/// The print server of this machine, with a bound to how long it may hold up the program.
///
/// The client library's own calls for queues and jobs open further connections where the first one fails, and
/// wait a minute on those. So the program asks with single requests, each on a connection of its own.
class CupsServer {
  public:
    /// How long the program waits without any progress, in one action of the user as a whole. An idle server
    /// answers in ten milliseconds.
    static constexpr std::chrono::milliseconds Patience{3000};
    /// An answer that comes within this time holds nobody up.
    static constexpr std::chrono::milliseconds Prompt{300};
    /// For how long a server that has used up the patience is not asked again: an action's further calls go
    /// without, and the user's next try finds the server if it is back.
    static constexpr std::chrono::milliseconds Rest{2000};

    /// `reason` words what the system refuses a waiting document.
    explicit CupsServer(SystemReason reason = LibrarysReason);

    CupsConnection Connect();
    /// One to fetch a file, for which no leave to send is needed.
    CupsConnection ConnectForFile();
    /// One for a document, which takes long where it is long: only a standstill counts.
    CupsConnection ConnectForDocument();

    /// Has the server been found not to answer after this moment?
    bool HasFailedSince(std::chrono::steady_clock::time_point moment) const { return lastFailure_ > moment; }

    /// An answer has come.
    void NoteAnswer() { lastAnswer_ = Clock::now(); }
    /// Was it found not to answer, and has it not answered since?
    bool IsSilent() const { return lastFailure_ > lastAnswer_; }

    const SystemReason& Reason() const { return reason_; }
    const UserDefaults& Defaults() const { return defaults_; }
    /// What the program has written as a queue's stored settings, for as long as it runs.
    StoredChoice& Chosen(const std::string& queue) { return chosen_[queue]; }
    /// What a queue's papers and bins are called, for as long as the program runs.
    MediaNumbers& Numbers(const std::string& queue) { return numbers_[queue]; }
    ToldByQueue& Told(const std::string& queue) { return told_[queue]; }

  private:
    friend struct CloseHttp;

    using Clock = std::chrono::steady_clock;

    static int GiveUp(http_t* http, void* server);
    enum class Purpose : int { Question, File, Document };

    CupsConnection Open(Purpose purpose);
    std::chrono::milliseconds PatienceLeft();
    void Waited(Clock::time_point since);

    SystemReason reason_;
    std::chrono::milliseconds spent_{0}; ///< on slow answers, lately
    Clock::time_point lastSpent_;
    Clock::time_point lastFailure_;
    Clock::time_point lastAnswer_;
    std::map<std::string, MediaNumbers> numbers_;
    std::map<std::string, StoredChoice> chosen_;
    std::map<std::string, ToldByQueue> told_;
    UserDefaults defaults_;
};

/// A request about a queue.
IppMessage NewRequest(ipp_op_t operation, const std::string& queueUri);

/// The place on the server that an address of a queue names, without the escapes of the address: the library
/// puts its own.
std::string ResourceOf(const std::string& queueUri);

/// The answer, or nothing if there is none or it tells a failure.
IppMessage Ask(http_t* http, IppMessage request);

/// Attributes of a queue by name. Several values are joined by commas, enumerations are numbers.
using CupsAttributes = std::map<std::string, std::string>;

/// The attributes of one queue, from `at` to the end of its group; `at` is left behind it.
CupsAttributes ReadAttributes(ipp_t* answer, ipp_attribute_t*& at);

/// The value of that name, or an empty text.
std::string ValueOf(const std::map<std::string, std::string>& values, const std::string& name);

} // namespace desktop::cups
