#include "desktop/cups/CupsStatus.h"

#include <algorithm>
#include <array>

namespace desktop::cups {

namespace {

constexpr std::uint32_t Paused = 1;
constexpr std::uint32_t Error = 2;
constexpr std::uint32_t Printing = 1024;
constexpr std::uint32_t NotAvailable = 4096;

struct Reason {
    std::string_view Keyword;
    std::uint32_t Bit;
};

constexpr std::array<Reason, 24> Reasons = {{
    {"paused", Paused},
    {"moving-to-paused", Paused},
    {"media-jam", 8},
    {"media-empty", 16},
    {"media-needed", 16},
    {"input-tray-missing", 64},
    {"media-path-cannot-be-performed", 64},
    {"offline", 128},
    {"connecting-to-device", 256},
    {"output-area-full", 2048},
    {"output-area-almost-full", 2048},
    {"shutdown", NotAvailable},
    {"timed-out", NotAvailable},
    {"cups-remote-stopped", NotAvailable},
    {"developer-low", 131072},
    {"marker-supply-low", 131072},
    {"toner-low", 131072},
    {"developer-empty", 262144},
    {"marker-supply-empty", 262144},
    {"toner-empty", 262144},
    {"spool-area-full", 2097152},
    {"cover-open", 4194304},
    {"door-open", 4194304},
    {"interlock-open", 4194304},
}};

constexpr std::array<std::string_view, 3> Severities = {"-report", "-warning", "-error"};

std::uint32_t BitsOf(std::string_view reason) {
    bool isError = false;
    for (const std::string_view severity : Severities) {
        if (reason.ends_with(severity)) {
            isError = severity == "-error";
            reason.remove_suffix(severity.size());
        }
    }
    const auto found = std::find_if(Reasons.begin(), Reasons.end(),
                                    [reason](const Reason& each) { return each.Keyword == reason; });
    if (found != Reasons.end()) {
        return found->Bit;
    }
    return isError ? Error : 0;
}

} // namespace

std::uint32_t StatusBits(std::string_view state, std::string_view reasons, std::string_view accepting) {
    std::uint32_t bits = 0;
    if (state == "4") {
        bits |= Printing;
    } else if (state == "5") {
        bits |= Paused;
    }
    if (accepting == "false") {
        bits |= NotAvailable;
    }
    while (!reasons.empty()) {
        const std::size_t comma = std::min(reasons.find(','), reasons.size());
        bits |= BitsOf(reasons.substr(0, comma));
        reasons.remove_prefix(std::min(comma + 1, reasons.size()));
    }
    return bits;
}

} // namespace desktop::cups
