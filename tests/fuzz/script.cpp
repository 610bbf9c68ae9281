// Scenario scripts of any text: the runner refuses what it cannot follow, and the program behind it survives
// what it can.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>

#include "Input.h"
#include "Player.h"
#include "Require.h"

namespace {

/// The print log goes into the current folder.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        path_ = (std::filesystem::temp_directory_path() / "fuzz-script-XXXXXX").string();
        REQUIRE(mkdtemp(path_.data()) != nullptr);
        std::filesystem::current_path(path_);
    }
    ~TemporaryFolder() {
        std::filesystem::current_path("/");
        std::filesystem::remove_all(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  private:
    std::string path_;
};

bool IsFigure(char c) {
    return c >= '0' && c <= '9';
}

std::size_t LongestNumber(std::string_view line) {
    std::size_t longest = 0;
    for (auto at = line.begin(); at != line.end();) {
        at = std::find_if(at, line.end(), IsFigure);
        const auto end = std::find_if_not(at, line.end(), IsFigure);
        longest = std::max(longest, static_cast<std::size_t>(end - at));
        at = end;
    }
    return longest;
}

/// A script may well ask for a million forms or a billion ticks, which is no fault. Lines that can ask for
/// work are held to small numbers.
bool IsShortWork(std::string_view script) {
    constexpr std::size_t mostLines = 60;
    constexpr std::size_t mostCharacters = 4096;
    constexpr std::size_t mostRuns = 6;
    std::size_t lines = 0;
    std::size_t runs = 0;
    for (fuzz::Input rest(script); !rest.Empty(); ++lines) {
        const std::string_view line = rest.Line();
        const auto holds = [line](std::string_view word) {
            return line.find(word) != std::string_view::npos;
        };
        const bool isSetting =
            line.starts_with("set") || line.starts_with("printer") || line.starts_with("workarea") ||
            line.starts_with("resize") || line.starts_with("wheel") || line.starts_with("scroll") ||
            line.starts_with("get") || line.starts_with("expect") || line.starts_with("clock");
        const std::size_t most = holds("PrinterInit") ? 4 : 2;
        if (!isSetting && LongestNumber(line) > most) {
            return false;
        }
        runs += (holds("cmdPrint") && !holds("cmdPrinten")) || holds("frmMain.Afdrukken") ? 1U : 0U;
        if (line.find_first_not_of(" \t") != std::string_view::npos && holds("dump")) {
            return false;
        }
    }
    return lines <= mostLines && runs <= mostRuns && script.size() <= mostCharacters;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryFolder folder;
    const std::string script(reinterpret_cast<const char*>(data), size);
    if (!IsShortWork(script)) {
        return 0;
    }
    std::istringstream lines(script);
    std::ostringstream record;
    std::ostringstream complaints;
    const int status = scenario::Player(lines, record, complaints).Run();
    REQUIRE(status == scenario::StatusDone || !complaints.str().empty());
    return 0;
}
