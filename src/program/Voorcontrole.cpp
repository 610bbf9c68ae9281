#include "program/Voorcontrole.h"

#include <cstdint>
#include <cstdio>
#include <optional>

#include "composition/DocumentRun.h"
#include "machine/Platform.h"
#include "precheck/CurrentPrinter.h"
#include "precheck/FindingsReport.h"
#include "precheck/Precheck.h"
#include "state/AppState.h"
#include "state/Settings.h"
#include "wizard/StartState.h"

namespace voorcontrole {

namespace {

constexpr std::int32_t LargestBatch = 250;
constexpr int StatusDone = 0;
constexpr int StatusSpoils = 2;

constexpr const char* Usage =
    "Gebruik: drukkeuring-voorcontrole [--json]\n"
    "\n"
    "Kijkt na wat een testpartij van IBAN-acceptgiro's zou bederven: de instellingen van Tarvik, de\n"
    "calibratie, de incassant, het OCR-B-lettertype en de standaardprinter met zijn vel. Er wordt niets\n"
    "afgedrukt en niets opgeslagen.\n"
    "\n"
    "  --json       de bevindingen als JSON\n"
    "  --help       deze tekst\n"
    "  --version    de versie\n"
    "\n"
    "Eindigt met 0 als er niets is gevonden, 1 als iets uw aandacht vraagt, en 2 als iets de testpartij\n"
    "bederft of niet kon worden nagekeken.\n";

constexpr const char* NoPrinter =
    "drukkeuring-voorcontrole: er is geen printer; printer en vel zijn niet nagekeken\n";

constexpr const char* Version = "drukkeuring-voorcontrole " DRUKKEURING_VERSION "\n";

} // namespace

Request ReadRequest(const std::vector<std::string_view>& words) {
    Request request;
    for (const std::string_view word : words) {
        if (word == "--json") {
            request.Json = true;
        } else if (word == "--help" || word == "-h") {
            request.Help = true;
        } else if (word == "--version") {
            request.Version = true;
        } else if (request.Wrong.empty()) {
            request.Wrong = word.empty() ? "\"\"" : std::string(word);
        }
    }
    return request;
}

bool AnswersByItself(const Request& request, Answer& answer) {
    if (!request.Wrong.empty()) {
        answer = {.Output = {},
                  .Complaint = "drukkeuring-voorcontrole: onbekend: " + request.Wrong + "\n" + Usage,
                  .Status = StatusSpoils};
        return true;
    }
    if (request.Help || request.Version) {
        answer = {.Output = request.Help ? Usage : Version, .Complaint = {}, .Status = StatusDone};
        return true;
    }
    return false;
}

Answer Check(machine::Platform& platform, const Request& request) {
    state::AppState state;
    wizard::SetConstants(state);
    state::LaadInstellingen(state, platform.Registry, true);
    state::LaadLettertype(state, platform.Registry);
    state::LaadStartInstellingen(state, platform.Registry);
    wizard::TakeAsShown(state);
    const precheck::Intent intent = {
        .Document = composition::DocumentTestForms, .Forms = LargestBatch, .FormsAskedFor = 0, .Copies = 1};
    const std::optional<precheck::ChosenPrinter> printer = precheck::CurrentPrinter(state, platform);
    const precheck::Findings findings = precheck::CheckAll(state, platform, intent, printer);
    return {.Output = request.Json ? precheck::ReportJson(findings) : precheck::ReportText(findings),
            .Complaint = printer ? "" : NoPrinter,
            .Status = printer ? precheck::ReportStatus(findings) : StatusSpoils};
}

int Tell(const Answer& answer) {
    std::fputs(answer.Complaint.c_str(), stderr);
    std::fputs(answer.Output.c_str(), stdout);
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? answer.Status : StatusSpoils;
}

int TellFailure(const char* reason) {
    std::fprintf(stderr, "drukkeuring-voorcontrole: %s\n", reason);
    return StatusSpoils;
}

} // namespace voorcontrole
