#pragma once

#include <cups/cups.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace platform::qt {

/// Options of a destination by name: the queue's state and defaults with the user's own on top.
using CupsOptions = std::map<std::string, std::string>;

struct CloseHttp {
    void operator()(http_t* http) const { httpClose(http); }
};
/// A connection with the print server; empty if it does not answer.
using CupsConnection = std::unique_ptr<http_t, CloseHttp>;

/// How long the server may take to accept a connection or to answer, in milliseconds. An idle queue answers
/// in ten; a server that hangs must not hold up the program.
inline constexpr int CupsPatience = 3000;
/// The same while a document is on its way.
inline constexpr int CupsJobPatience = 30000;

CupsConnection ConnectCups(int patience = CupsPatience);

/// All destinations with their options. Freed with the list.
class CupsDestinations {
  public:
    explicit CupsDestinations(http_t* http) : count_(cupsGetDests2(http, &list_)) {}
    ~CupsDestinations() { cupsFreeDests(count_, list_); }
    CupsDestinations(const CupsDestinations&) = delete;
    CupsDestinations& operator=(const CupsDestinations&) = delete;

    int Count() const { return count_; }
    cups_dest_t* begin() const { return list_; }
    cups_dest_t* end() const { return list_ + count_; }

  private:
    cups_dest_t* list_ = nullptr; // before count_, whose initialiser fills it
    int count_ = 0;
};

CupsOptions OptionsOf(const cups_dest_t& destination);

/// State and options of one queue as they are now; nothing if the server does not know it.
std::optional<CupsOptions> QueueOptions(http_t* http, const std::string& queue);

/// The option's value, or an empty text.
std::string OptionValue(const CupsOptions& options, const std::string& name);

} // namespace platform::qt
