#include "PrinterOptions.h"

#include <charconv>
#include <limits>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "ScriptError.h"

namespace scenario {

namespace {

using memory::PrintQueue;

/// Decimal, or hexadecimal behind "0x"; up to `most`.
std::uint32_t Unsigned(std::string_view text, std::uint32_t most) {
    const bool hexadecimal = text.starts_with("0x");
    const std::string_view digits = hexadecimal ? text.substr(2) : text;
    std::uint32_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != digits.data() + digits.size() || value > most) {
        throw ScriptError("no number that fits: " + std::string(text));
    }
    return value;
}

std::int16_t Int16(std::string_view text) {
    const int value = WholeNumberOf(text, "option");
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
        throw ScriptError("does not fit 16 bits: " + std::string(text));
    }
    return static_cast<std::int16_t>(value);
}

std::vector<std::string_view> Split(std::string_view text, char mark, std::size_t most) {
    std::vector<std::string_view> parts;
    while (parts.size() + 1 < most) {
        const std::size_t at = text.find(mark);
        if (at == std::string_view::npos) {
            break;
        }
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    parts.push_back(text);
    return parts;
}

/// Two whole numbers with a mark between.
memory::Dots Pair(std::string_view text, char mark) {
    const auto parts = Split(text, mark, 2);
    if (parts.size() != 2) {
        throw ScriptError("no pair of numbers: " + std::string(text));
    }
    return {WholeNumberOf(parts[0], "option"), WholeNumberOf(parts[1], "option")};
}

constexpr std::size_t NoLimit = std::numeric_limits<std::size_t>::max();

/// "9:2100x2970:A4;5:2159x3556:Legal"; empty for none.
std::vector<memory::QueuePaper> Papers(std::string_view text) {
    std::vector<memory::QueuePaper> papers;
    for (const std::string_view paper : Split(text, ';', NoLimit)) {
        if (text.empty()) {
            break;
        }
        const auto parts = Split(paper, ':', 3);
        if (parts.size() != 3) {
            throw ScriptError("no paper: " + std::string(paper));
        }
        const memory::Dots size = Pair(parts[1], 'x');
        papers.push_back({Int16(parts[0]), size.X, size.Y, std::string(parts[2])});
    }
    return papers;
}

/// "15:Automatisch;1:Lade 1"; empty for none.
std::vector<memory::QueueBin> Bins(std::string_view text) {
    std::vector<memory::QueueBin> bins;
    for (const std::string_view bin : Split(text, ';', NoLimit)) {
        if (text.empty()) {
            break;
        }
        const auto parts = Split(bin, ':', 2);
        if (parts.size() != 2) {
            throw ScriptError("no bin: " + std::string(bin));
        }
        bins.push_back({Int16(parts[0]), std::string(parts[1])});
    }
    return bins;
}

int Dpi(std::string_view text) {
    const int dpi = WholeNumberOf(text, "dpi");
    if (dpi <= 0) {
        throw ScriptError("no resolution: " + std::string(text));
    }
    return dpi;
}

struct Option {
    std::string_view Name;
    void (*Apply)(PrintQueue&, std::string_view);
};

constexpr Option Options[] = {
    {"port", [](PrintQueue& q, std::string_view v) { q.Port = v; }},
    {"comment", [](PrintQueue& q, std::string_view v) { q.Comment = v; }},
    {"status", [](PrintQueue& q,
                  std::string_view v) { q.Status = Unsigned(v, std::numeric_limits<std::uint32_t>::max()); }},
    {"orientation", [](PrintQueue& q, std::string_view v) { q.Defaults.Orientation = Int16(v); }},
    {"paper", [](PrintQueue& q, std::string_view v) { q.Defaults.PaperSize = Int16(v); }},
    {"bin", [](PrintQueue& q, std::string_view v) { q.Defaults.DefaultSource = Int16(v); }},
    {"copies", [](PrintQueue& q, std::string_view v) { q.Defaults.Copies = Int16(v); }},
    {"fields", [](PrintQueue& q,
                  std::string_view v) { q.Fields = Unsigned(v, std::numeric_limits<std::uint32_t>::max()); }},
    {"papers", [](PrintQueue& q, std::string_view v) { q.Papers = Papers(v); }},
    {"bins", [](PrintQueue& q, std::string_view v) { q.Bins = Bins(v); }},
    {"dpi", [](PrintQueue& q, std::string_view v) { q.Dpi = Dpi(v); }},
    {"sheet", [](PrintQueue& q, std::string_view v) { q.Sheet = Pair(v, 'x'); }},
    {"printable", [](PrintQueue& q, std::string_view v) { q.Printable = Pair(v, 'x'); }},
    {"offset", [](PrintQueue& q, std::string_view v) { q.Offset = Pair(v, ','); }},
    {"reachable", [](PrintQueue& q, std::string_view v) { q.Reachable = Unsigned(v, 1) == 1; }},
    {"imposed",
     [](PrintQueue& q, std::string_view v) {
         for (const std::string_view one : Split(v, ';', NoLimit)) {
             q.Imposed.emplace_back(one);
         }
     }},
    {"font", [](PrintQueue& q, std::string_view v) { q.Font = v; }},
};

} // namespace

void ApplyPrinterOption(PrintQueue& queue, std::string_view option) {
    const std::size_t mark = option.find('=');
    for (const Option& known : Options) {
        if (mark != std::string_view::npos && known.Name == option.substr(0, mark)) {
            known.Apply(queue, option.substr(mark + 1));
            return;
        }
    }
    throw ScriptError("no such option of a printer: " + std::string(option));
}

} // namespace scenario
