#include "fault/Story.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "CommandLine.h"

namespace fault {

namespace {

constexpr const char* Folder = FAULT_STORIES;
constexpr const char* Start = "start";

/// Commands by which the program is asked for paper.
constexpr const char* PrintingSteps[] = {"click frmPrintManager.cmdPrint",
                                         "click frmPrintPreview.Toolbar(1)"};

std::filesystem::path Path(const char* name) {
    return std::filesystem::path(Folder) / name;
}

/// The lines of a script, without comments.
std::vector<std::string> LinesOf(const std::filesystem::path& path) {
    std::ifstream file(path);
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#') {
            lines.push_back(line);
        }
    }
    return lines;
}

/// A form that no command of the program opens comes up over the wizard.
std::string FormOf(const std::string& line) {
    scenario::CommandLine words(line);
    const std::string command = words.Word("command");
    const std::string target = words.Word("form");
    return command == "open" ? "frmMain" : target.substr(0, target.find('.'));
}

Story StoryOf(const std::filesystem::path& path) {
    const std::vector<std::string> lines = LinesOf(path);
    const auto start = std::find(lines.begin(), lines.end(), Start);
    if (start == lines.end()) {
        throw std::runtime_error("the program is not started in " + path.string());
    }
    return {path.stem().string(), {lines.begin(), start}, {std::next(start), lines.end()}};
}

std::vector<Story> AllStories() {
    std::vector<Story> stories;
    for (const auto& entry : std::filesystem::directory_iterator(Path("stories"))) {
        stories.push_back(StoryOf(entry.path()));
    }
    std::sort(stories.begin(), stories.end(), [](const Story& a, const Story& b) { return a.Name < b.Name; });
    return stories;
}

} // namespace

Step::Step(std::string line)
    : Line(std::move(line)), Form(FormOf(Line)),
      Prints(std::find(std::begin(PrintingSteps), std::end(PrintingSteps), Line) != std::end(PrintingSteps)) {
}

const std::vector<Story>& Stories() {
    static const std::vector<Story> stories = AllStories();
    return stories;
}

const std::vector<std::string>& Settings() {
    static const std::vector<std::string> settings = LinesOf(Path("settings.scenario"));
    return settings;
}

const std::vector<Step>& PrintReport() {
    static const std::vector<Step> steps = [] {
        const std::vector<std::string> lines = LinesOf(Path("report.scenario"));
        return std::vector<Step>(lines.begin(), lines.end());
    }();
    return steps;
}

} // namespace fault
