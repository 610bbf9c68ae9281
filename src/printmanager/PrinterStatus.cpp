#include "printmanager/PrinterStatus.h"

#include <algorithm>
#include <iterator>

namespace printmanager {

namespace {

struct StatusName {
    std::int32_t Value;
    const char* Name;
};

/// By the names of the spooler's documentation. Only the first fifteen are within the bits that are looked
/// at: bit 15 has the value 32768.
constexpr StatusName Names[] = {
    {1, "Paused"},
    {2, "Error"},
    {4, "Pending Deletion"},
    {8, "Paper Jam"},
    {16, "Paper Out"},
    {32, "Manual Feed"},
    {64, "Paper Problem"},
    {128, "Offline"},
    {256, "IO Active"},
    {512, "Busy"},
    {1024, "Printing"},
    {2048, "Output Bin Full"},
    {4096, "Not Available"},
    {8192, "Waiting"},
    {16384, "Processing"},
    {-32768, "Initializing"},
    {65536, "Warming Up"},
    {131072, "Toner Low"},
    {262144, "No Toner"},
    {524288, "Page Punt"},
    {1048576, "User Intervention"},
    {2097152, "Out Of Memory"},
    {4194304, "Door Open"},
};

constexpr int BitsLookedAt = 16;

} // namespace

std::string StatusNames(std::int32_t status) {
    std::string names;
    for (int bit = 0; bit < BitsLookedAt; ++bit) {
        const std::int32_t value = 1 << bit;
        if ((status & value) == 0) {
            continue;
        }
        const auto* const known =
            std::find_if(std::begin(Names), std::end(Names),
                         [value](const StatusName& name) { return name.Value == value; });
        if (known != std::end(Names)) {
            names += "\r\n";
            names += known->Name;
        }
    }
    return names;
}

void PrinterStatusText(std::string& text, std::int32_t status) {
    text.clear();
    if (status <= 0) {
        text = "Ready";
        return;
    }
    // The status line has room for one line only, so the names stay here, where a debugger finds them.
    [[maybe_unused]] const std::string names = StatusNames(status);
}

} // namespace printmanager
