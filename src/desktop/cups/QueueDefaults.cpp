#include "desktop/cups/QueueDefaults.h"

#include <algorithm>
#include <charconv>

#include "desktop/cups/AsciiCase.h"
#include "desktop/cups/PageOptions.h"

namespace desktop::cups {

namespace {

/// Sheets that a server puts before and behind each document for its secrecy, whatever the job says. It does
/// not tell that it insists, but it then has the same one as the default at both places.
constexpr std::array<std::string_view, 5> SecrecySheets = {"classified", "confidential", "secret",
                                                           "topsecret", "unclassified"};

/// The user's choice of an option; empty if there is none.
std::string Chosen(const CupsOptions& own, const std::string& option) {
    const auto found = std::find_if(
        own.begin(), own.end(), [&option](const auto& each) { return Lower(each.first) == Lower(option); });
    return found == own.end() ? std::string() : found->second;
}

std::string Attribute(const std::map<std::string, std::string>& known, const char* name) {
    const auto found = known.find(name);
    return found == known.end() ? std::string() : found->second;
}

/// Takes a number from the beginning; 0 if there is none.
int TakeDots(std::string_view& text) {
    int number = 0;
    const char* const end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return std::max(number, 0);
}

std::string SecrecySheetOf(const std::string& sheets) {
    const auto* const found =
        std::find_if(SecrecySheets.begin(), SecrecySheets.end(), [&sheets](std::string_view each) {
            return sheets == std::string(each) + ',' + std::string(each);
        });
    return found == SecrecySheets.end() ? std::string() : std::string(*found);
}

} // namespace

int DotsIn(std::string_view resolution) {
    const int across = TakeDots(resolution);
    int down = across;
    if (resolution.starts_with('x')) {
        resolution.remove_prefix(1);
        down = TakeDots(resolution);
    }
    return resolution == "dpi" ? std::min(across, down) : 0;
}

int DotsPerInchOf(const CupsMedia& media, const CupsOptions& own,
                  const std::map<std::string, std::string>& known) {
    std::vector<std::string> told;
    told.reserve(ResolutionOptions.size() + 2);
    for (const char* option : ResolutionOptions) {
        told.push_back(Chosen(own, option));
    }
    told.push_back(Chosen(own, "printer-resolution"));
    // For a PPD without a resolution the server makes one up.
    told.push_back(media.IsByPpd ? media.Resolution : Attribute(known, "printer-resolution-default"));
    const auto found =
        std::find_if(told.begin(), told.end(), [](const std::string& each) { return DotsIn(each) != 0; });
    return found == told.end() ? 0 : DotsIn(*found);
}

std::vector<std::string> ImposedOn(const CupsMedia& media, const CupsOptions& own,
                                   const std::map<std::string, std::string>& known) {
    std::vector<std::string> imposed;
    for (const ImposingOption& option : media.Imposing) {
        const std::string users =
            ChangesPages(option.Keyword) ? std::string() : Chosen(own, option.Keyword); // as jobs take them
        const auto choice = option.Choices.find(users.empty() ? option.Preset : users);
        if (choice != option.Choices.end()) {
            imposed.push_back(option.Name + ": " + choice->second);
        }
    }
    if (const std::string sheet = SecrecySheetOf(Attribute(known, "job-sheets-default")); !sheet.empty()) {
        imposed.push_back("job-sheets: " + sheet);
    }
    return imposed;
}

} // namespace desktop::cups
