#include "desktop/cups/PageOptions.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <span>

namespace desktop::cups {

namespace {

/// Small letters and digits alone: makers write "N-Up", "NUp" and "Nup".
std::string PlainName(std::string_view name) {
    std::string plain;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0) {
            plain += static_cast<char>(std::tolower(byte));
        }
    }
    return plain;
}

// Names of the server and of its filters, without the marks between their words. Some mean nothing for a
// single document, and a printer refuses it for them.
constexpr std::array<std::string_view, 43> ServerNames = {
    "copies",
    "coverback",
    "coverfront",
    "croptofit",
    "fill",
    "fitplot",
    "fittopage",
    "imageorientation",
    "impositiontemplate",
    "insertsheet",
    "ippattributefidelity",
    "jobpagesperset",
    "jobsheets",
    "jobsheetscol",
    "landscape",
    "mediasize",
    "multipledocumenthandling",
    "naturalscaling",
    "numberup",
    "numberuplayout",
    "orientationrequested",
    "outputorder",
    "pageborder",
    "pagebottom",
    "pagedelivery",
    "pagelabel",
    "pageleft",
    "pageorderreceived",
    "pageranges",
    "pageright",
    "pageset",
    "pagetop",
    "pdfautorotate",
    "position",
    "presentationdirectionnumberup",
    "printscaling",
    "scaling",
    "separatorsheets",
    "sides",
    "ximageposition",
    "ximageshift",
    "yimageposition",
    "yimageshift",
};

using Names = std::span<const std::string_view>;

constexpr std::array<std::string_view, 11> Off = {"none",     "off",      "false",    "no",
                                                  "0",        "disable",  "disabled", "notselected",
                                                  "nobanner", "nomirror", "normal"};
constexpr std::array<std::string_view, 17> OneSided = {
    "none",       "off",      "false",     "no",       "simplex",     "onesided",
    "oneside",    "1sided",   "1side",     "single",   "singlesided", "singleside",
    "duplexnone", "noduplex", "duplexoff", "disabled", "disable"};
constexpr std::array<std::string_view, 15> OneUp = {"1",     "1up", "oneup",  "1in1", "1x1",
                                                    "nup1",  "n1",  "one",    "none", "off",
                                                    "false", "x1",  "single", "no",   "normal"};
constexpr std::array<std::string_view, 11> FullSize = {"crop",      "100",     "100percent", "scale100",
                                                       "none",      "off",     "false",      "no",
                                                       "noscaling", "noscale", "disabled"};
constexpr std::array<std::string_view, 4> InOrder = {"normal", "off", "false", "none"};

/// Options whose plain name holds `Part`, and the choices that leave pages as they are.
struct Kind {
    std::string_view Part;
    Names Choices;
};
constexpr std::array<Kind, 24> Kinds = {{
    {"duplex", OneSided},
    {"twosided", OneSided},
    {"numberup", OneUp},
    {"pagespersheet", OneUp},
    {"multiplepages", OneUp},
    {"booklet", Off},
    {"mirror", Off},
    {"poster", Off},
    {"fittopage", FullSize},
    {"scaletofit", FullSize},
    {"shrinktofit", FullSize},
    {"fitpage", FullSize},
    {"autofit", FullSize},
    {"autoscal", FullSize},
    {"shrinkoutput", FullSize},
    {"printscaling", FullSize},
    {"pagescaling", FullSize},
    {"outputorder", InOrder},
    {"reverseorder", InOrder},
    {"reverseprint", InOrder},
    {"banner", Off},
    {"separatorpage", Off},
    {"separatorsheet", Off},
    {"pageborder", Off},
}};
/// What is done with the finished sheet is the user's, and how colours are made.
constexpr std::array<std::string_view, 8> UsersOwn = {"bind",   "fold", "stitch", "staple",
                                                      "saddle", "trim", "punch",  "posteriz"};

bool Holds(std::string_view name, std::string_view part) {
    return name.find(part) != std::string_view::npos;
}

bool Contains(Names names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool HoldsAny(std::string_view name, Names parts) {
    return std::any_of(parts.begin(), parts.end(),
                       [name](std::string_view part) { return Holds(name, part); });
}

Names ChoicesOfKind(std::string_view name) {
    if (HoldsAny(name, UsersOwn)) {
        return {};
    }
    if (name == "sides") {
        return OneSided;
    }
    if (name == "scaling" || name == "scale" || name == "zoom") {
        return FullSize;
    }
    if (name.ends_with("nup") && !name.ends_with("cleanup")) {
        return OneUp;
    }
    const auto* const kind =
        std::find_if(Kinds.begin(), Kinds.end(), [name](const Kind& each) { return Holds(name, each.Part); });
    return kind == Kinds.end() ? Names() : kind->Choices;
}

/// Parts of the plain names of options that change what stands on the paper.
constexpr std::array<std::string_view, 25> Imposing = {
    "watermark",  "wtrmrk",     "wmtext",        "overlay",     "datestamp",     "headerfooter",
    "croplines",  "cropmark",   "orientovr",     "rotat",       "negativeprint", "orientationoverride",
    "shiftfront", "imageshift", "imageposition", "marginshift", "slipsheet",     "combination",
    "frontcover", "backcover",  "coverpage",     "covermode",   "mcover",        "interleav",
    "insertsheet"};
/// Parts of the names of others that are no matter of the page.
constexpr std::array<std::string_view, 3> NotImposing = {"autorotat", "collat", "envrotat"};
/// Choices that leave pages alone, besides those of Off, or leave them to the printer.
constexpr std::array<std::string_view, 9> LeftAlone = {"default",         "printerdefault", "printers",
                                                       "printersettings", "auto",           "marginnone",
                                                       "rotate0",         "0degrees",       "autorotate"};

/// What a filter takes for the first page alone, as its bin.
constexpr std::string_view OfFirstPage = "apfirstpage";

/// True for the choices of an option that prints on both sides, whatever its name is.
bool IsTwoSided(std::string_view choice) {
    return choice.starts_with("duplextumble") || choice.starts_with("duplexnotumble") ||
           choice.starts_with("twosided") || choice == "longedge" || choice == "shortedge" ||
           choice == "2sided" || choice == "doublesided";
}

} // namespace

bool ChangesPages(std::string_view option) {
    const std::string name = PlainName(option);
    return Contains(ServerNames, name) || name.starts_with(OfFirstPage) || !ChoicesOfKind(name).empty();
}

std::string PlainChoice(std::string_view option, const std::vector<std::string>& choices) {
    Names plain = ChoicesOfKind(PlainName(option));
    if (plain.empty() && !HoldsAny(PlainName(option), UsersOwn) &&
        std::any_of(choices.begin(), choices.end(),
                    [](const std::string& choice) { return IsTwoSided(PlainName(choice)); })) {
        plain = OneSided;
    }
    for (const std::string_view wanted : plain) {
        const auto found = std::find_if(choices.begin(), choices.end(), [wanted](const std::string& choice) {
            return PlainName(choice) == wanted;
        });
        if (found != choices.end()) {
            return *found;
        }
    }
    return {};
}

std::vector<std::string> ImposingChoices(std::string_view option, const std::vector<std::string>& choices) {
    const std::string name = PlainName(option);
    const bool isPageCount = Holds(name, "nuppages");
    if ((!HoldsAny(name, Imposing) && !isPageCount) || HoldsAny(name, NotImposing) ||
        HoldsAny(name, UsersOwn)) {
        return {};
    }
    std::vector<std::string> imposing;
    std::copy_if(choices.begin(), choices.end(), std::back_inserter(imposing), [&](const std::string& each) {
        const std::string plain = PlainName(each);
        return !Contains(isPageCount ? Names(OneUp) : Names(Off), plain) && !Contains(LeftAlone, plain);
    });
    // Without a choice that leaves the document alone, the option only tells how something would look that
    // another one brings about.
    return imposing.size() < choices.size() ? imposing : std::vector<std::string>();
}

} // namespace desktop::cups
