#include "precheck/FindingsReport.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"

namespace precheck {

namespace text = base::text;

namespace {

constexpr std::string_view Heading = "Voorcontrole van de testpartij: ";
constexpr std::string_view Indent = "   ";

std::string_view GravityWord(Gravity gravity) {
    return gravity == Gravity::Spoils ? "spoils" : "look-at";
}

std::string_view SubjectWord(Subject subject) {
    switch (subject) {
    case Subject::Settings:
        return "settings";
    case Subject::Calibration:
        return "calibration";
    case Subject::Creditor:
        return "creditor";
    case Subject::OcrFont:
        return "ocr-font";
    case Subject::Sheet:
        return "sheet";
    case Subject::Printer:
        return "printer";
    case Subject::Count:
        break;
    }
    return "count";
}

/// Bytes that are no UTF-8 become U+FFFD, so that any reader takes the whole.
std::string JsonString(std::string_view value) {
    static constexpr std::string_view hex = "0123456789abcdef";
    std::string quoted = "\"";
    while (!value.empty()) {
        const text::Decoded letter = text::DecodeFirst(value);
        if (letter.Code == U'"' || letter.Code == U'\\') {
            quoted += '\\';
            quoted += static_cast<char>(letter.Code);
        } else if (letter.Code < U' ') {
            quoted += "\\u00";
            quoted += hex[letter.Code / 16];
            quoted += hex[letter.Code % 16];
        } else {
            quoted += text::Encode(letter.Code);
        }
        value.remove_prefix(letter.Bytes);
    }
    quoted += '"';
    return quoted;
}

/// Lengths to a hundredth of a millimetre.
std::string JsonTexts(const std::vector<WrongPlace>& texts) {
    std::string list;
    for (const WrongPlace& text : texts) {
        list += (list.empty() ? "[" : ",") + std::string("{\"name\":") + JsonString(text.Name) +
                ",\"mm\":" + base::NumberText(std::round(text.Millimetres * 100) / 100) + "}";
    }
    return list + "]";
}

std::string JsonObject(const Finding& finding) {
    const std::array<std::pair<std::string_view, std::string_view>, 5> members = {{
        {"code", finding.Code},
        {"gravity", GravityWord(finding.Gravity)},
        {"subject", SubjectWord(finding.Subject)},
        {"wrong", finding.Wrong},
        {"mend", finding.Mend},
    }};
    std::string object = "{";
    for (const auto& [name, value] : members) {
        if (object.size() > 1) {
            object += ",";
        }
        object.append(JsonString(name)).append(":").append(JsonString(value));
    }
    if (!finding.Texts.empty()) {
        object += ",\"texts\":" + JsonTexts(finding.Texts);
    }
    return object + "}";
}

} // namespace

std::string CountText(std::size_t findings) {
    switch (findings) {
    case 0:
        return "er is niets gevonden";
    case 1:
        return "1 punt vraagt uw aandacht";
    default:
        return std::to_string(findings) + " punten vragen uw aandacht";
    }
}

std::string_view GravityText(Gravity gravity) {
    return gravity == Gravity::Spoils ? "Fout" : "Let op";
}

std::string ReportText(const Findings& findings) {
    std::string report(Heading);
    report += CountText(findings.size()) + ".\n";
    std::size_t number = 0;
    for (const Finding& finding : findings) {
        report += "\n" + std::to_string(++number) + ". ";
        report.append(GravityText(finding.Gravity)).append(" (").append(finding.Code).append(")\n");
        report.append(Indent).append(finding.Wrong).append("\n");
        report.append(Indent).append(finding.Mend).append("\n");
    }
    return report;
}

std::string ReportJson(const Findings& findings) {
    std::string report = "{\"findings\":[";
    for (const Finding& finding : findings) {
        if (&finding != &findings.front()) {
            report += ",";
        }
        report += "\n" + JsonObject(finding);
    }
    return report + "]}\n";
}

int ReportStatus(const Findings& findings) {
    if (findings.empty()) {
        return 0;
    }
    const bool spoils = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.Gravity == Gravity::Spoils;
    });
    return spoils ? 2 : 1;
}

} // namespace precheck
