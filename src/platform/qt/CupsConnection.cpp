#include "platform/qt/CupsConnection.h"

#include <sys/socket.h>

namespace platform::qt {

namespace {

int GiveUp(http_t*, void*) {
    return 0;
}

} // namespace

CupsConnection ConnectCups(int patience) {
    CupsConnection connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                           CupsPatience, nullptr));
    if (connection != nullptr) {
        httpSetTimeout(connection.get(), patience / 1000.0, GiveUp, nullptr);
    }
    return connection;
}

CupsOptions OptionsOf(const cups_dest_t& destination) {
    CupsOptions options;
    for (int i = 0; i < destination.num_options; ++i) {
        options[destination.options[i].name] = destination.options[i].value;
    }
    return options;
}

std::optional<CupsOptions> QueueOptions(http_t* http, const std::string& queue) {
    cups_dest_t* destination = cupsGetNamedDest(http, queue.c_str(), nullptr);
    if (destination == nullptr) {
        return std::nullopt;
    }
    CupsOptions options = OptionsOf(*destination);
    cupsFreeDests(1, destination);
    return options;
}

std::string OptionValue(const CupsOptions& options, const std::string& name) {
    const auto found = options.find(name);
    return found == options.end() ? std::string() : found->second;
}

} // namespace platform::qt
