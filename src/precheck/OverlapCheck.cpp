#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "precheck/DocumentFindings.h"
#include "precheck/Lengths.h"
#include "precheck/Wording.h"

namespace precheck {

namespace {

using Block = state::CalibratedBlock;

/// In both directions: less is where two texts touch.
constexpr double OverlapTwips = ToTwips(0.1);

/// Texts over each other: those of one form by their blocks, whichever form it is, those of two by the forms.
struct Meeting {
    std::pair<Block, Block> Blocks{};
    std::pair<std::int16_t, std::int16_t> Places{}; ///< 0 where it is one form

    bool operator==(const Meeting&) const = default;
};

double Across(const SheetPlace& one, const SheetPlace& other) {
    return std::min(one.Right, other.Right) - std::max(one.Left, other.Left);
}

double Down(const SheetPlace& one, const SheetPlace& other) {
    return std::min(one.Bottom, other.Bottom) - std::max(one.Top, other.Top);
}

/// "van hetzelfde formulier", "van het bovenste formulier en het middelste formulier"
std::string WhoseOf(const Meeting& meeting) {
    const auto [first, second] = meeting.Places;
    if (first == 0) {
        return "van hetzelfde formulier";
    }
    return std::string("van het ").append(PlaceName(first)).append(" en het ").append(PlaceName(second));
}

class OverlapCheck {
  public:
    explicit OverlapCheck(DocumentFindings& found) : found_(found) {}

    void Check() {
        const std::size_t count = found_.Document.Texts.size();
        std::vector<std::size_t> page;
        for (std::size_t from = 0; from < count;) {
            page.clear();
            std::size_t to = from;
            for (; to < count && found_.TextAt(to).Page == found_.TextAt(from).Page; ++to) {
                page.push_back(to);
            }
            CheckPage(page);
            from = to;
        }
        for (const auto& [meeting, group] : meetings_) {
            Tell(meeting, group);
        }
    }

  private:
    /// From the top of the page down, each text is held against those only that begin before it ends.
    void CheckPage(std::vector<std::size_t>& page) {
        std::stable_sort(page.begin(), page.end(), [&](std::size_t one, std::size_t other) {
            return found_.TextAt(one).Ink.Top < found_.TextAt(other).Ink.Top;
        });
        for (std::size_t i = 0; i < page.size(); ++i) {
            const SheetPlace& upper = found_.TextAt(page[i]).Ink;
            for (std::size_t j = i + 1; j < page.size(); ++j) {
                const SheetPlace& lower = found_.TextAt(page[j]).Ink;
                if (lower.Top >= upper.Bottom - OverlapTwips) {
                    break;
                }
                const double least = std::min(Across(upper, lower), Down(upper, lower));
                if (least > OverlapTwips) {
                    AddMeeting(page[i], page[j], least);
                }
            }
        }
    }

    void AddMeeting(std::size_t number, std::size_t otherNumber, double twips) {
        const InkedText& text = found_.TextAt(number);
        const InkedText& other = found_.TextAt(otherNumber);
        const bool isOneForm = text.Place == other.Place;
        Meeting meeting;
        if (isOneForm) {
            meeting.Blocks = std::minmax({found_.BlockOf(text), found_.BlockOf(other)});
        } else {
            meeting.Places = std::minmax({text.Place, other.Place});
        }
        const auto fieldOf = [&](const InkedText& of) {
            return FieldOfForm{of.Field, isOneForm ? std::int16_t{0} : of.Place};
        };
        const auto [first, second] = std::minmax({fieldOf(text), fieldOf(other)});
        TextGroup& group = meetings_[meeting];
        group.Add({first, second, twips, number, otherNumber});
        group.Forms.insert({{text.Page, text.Place}, {other.Page, other.Place}});
    }

    void Tell(const Meeting& meeting, const TextGroup& group) {
        const InkedText& one = found_.TextAt(group.Worst().Text);
        const InkedText& other = found_.TextAt(group.Worst().OtherText);
        const std::string both = found_.FieldOn(one) + " en " + found_.FieldOn(other);
        const std::string area = ", over " + Millimetres(Across(one.Ink, other.Ink)) + " bij " +
                                 Millimetres(Down(one.Ink, other.Ink));
        const std::string forms = found_.OnHowMany(group);
        if (group.Wrong.size() == 1) {
            found_.AddGroup(FindingKind::SheetTextsOverlap, group, {Capital(both), area + forms, {}});
        } else {
            const std::string texts = std::to_string(group.Fields()) + " teksten " + WhoseOf(meeting);
            found_.AddGroup(FindingKind::SheetTextsOverlap, group,
                            {texts, forms, " Het meest: " + both + area + '.'});
        }
    }

    DocumentFindings& found_;
    TextGroups<Meeting> meetings_;
};

} // namespace

void CheckOverlaps(DocumentFindings& findings) {
    OverlapCheck(findings).Check();
}

} // namespace precheck
