#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "precheck/DocumentFindings.h"
#include "precheck/Lengths.h"
#include "precheck/MovedText.h"
#include "precheck/Wording.h"

namespace precheck {

namespace {

using Block = state::CalibratedBlock;

/// A third of a dot at 180 to the inch: less is nothing that paper shows.
constexpr double OffSheetTwips = ToTwips(0.05);

constexpr std::string_view MendOff =
    "Kies het formaat van uw acceptgiropapier, of een printer die dichter bij de rand kan afdrukken.";
constexpr std::string_view MendLong = "Kort de tekst af, of verklein in Tarvik de letters.";
constexpr std::string_view MendList = "Kies een groter papier.";
constexpr std::string_view MendMoved = "Verbeter de calibratie in Tarvik.";

/// Texts off the sheet, by the place of their form and by how they are mended.
using OffSheet = std::pair<std::int16_t, std::string_view>;
/// Texts off their form by the calibration, by the place of the form and by the block that is to blame.
using OffByCalibration = std::pair<std::int16_t, Block>;

/// What texts do, of one and of more.
struct Verb {
    std::string_view One;
    std::string_view More;
};

/// By how much ink stands out of an area, in the direction in which it stands out most.
double Overshoot(const SheetPlace& ink, double left, double top, double right, double bottom) {
    return std::max({left - ink.Left, top - ink.Top, ink.Right - right, ink.Bottom - bottom});
}

class PlaceCheck {
  public:
    PlaceCheck(DocumentFindings& found, machine::Locale& locale) : found_(found), locale_(locale) {}

    void Check() {
        ForEachText([&](const InkedText& text, std::size_t) {
            if (OffSheetBy(text) > OffSheetTwips) {
                offSheet_.insert(FieldOf(text));
            }
        });
        if (found_.IsForms) {
            LookAtForms();
        }
        TellOffByCalibration();
        TellOffSheet();
        TellRanOver();
    }

  private:
    template <class Each>
    void ForEachText(Each each) const {
        for (std::size_t i = 0; i < found_.Document.Texts.size(); ++i) {
            each(found_.TextAt(i), i);
        }
    }

    static FieldOfForm FieldOf(const InkedText& text) { return {text.Field, text.Place}; }

    static void AddText(TextGroup& group, const InkedText& text, std::size_t number, double twips) {
        group.Add({FieldOf(text), FieldOf(text), twips, number, number});
        group.Forms.insert({text.Page, text.Place});
    }

    double OffSheetBy(const InkedText& text) const {
        const machine::SheetArea& sheet = found_.Sheet;
        return Overshoot(text.Ink, sheet.Left, sheet.Top, sheet.Right, sheet.Bottom);
    }

    /// How far off its form a text would stand without a shift.
    double OffForm(const InkedText& text, const composition::RowShift& without) const {
        const std::vector<SheetPlace>& forms = found_.Forms;
        const SheetPlace& form = forms[forms.size() == 1 ? 0 : static_cast<std::size_t>(text.Place - 1)];
        const SheetPlace ink = {text.Ink.Left - without.x, text.Ink.Top - without.y,
                                text.Ink.Right - without.x, text.Ink.Bottom - without.y};
        return Overshoot(ink, form.Left, form.Top, form.Right, form.Bottom);
    }

    std::vector<MovingValue> ValuesOf(const InkedText& text) const {
        return MovingValues(found_.State, locale_, found_.BlockOf(text), text.Place);
    }

    /// The block without whose calibration the text would stand least far off its form.
    Block ToBlame(const InkedText& text, const std::vector<MovingValue>& values) const {
        const auto without = [&](Block block) {
            std::vector<MovingValue> own;
            std::copy_if(values.begin(), values.end(), std::back_inserter(own),
                         [&](const MovingValue& value) { return value.Block == block; });
            return OffForm(text, SumOf(own));
        };
        const Block own = found_.BlockOf(text);
        return own != Block::OcrLine && without(Block::Form) <= without(own) ? Block::Form : own;
    }

    /// Texts that do not stay on their form: those that their calibration has moved off it, and those that
    /// would not fit without it either. What is off the sheet is told there; what stays on it may still be on
    /// the next form.
    void LookAtForms() {
        ForEachText([&](const InkedText& text, std::size_t number) {
            const double overshoot = OffForm(text, {});
            if (overshoot <= OffSheetTwips) {
                return;
            }
            const FieldOfForm field = FieldOf(text);
            const std::vector<MovingValue> values = ValuesOf(text);
            if (OffForm(text, SumOf(values)) < overshoot / 2) {
                moved_.insert(field);
                AddText(offByCalibration_[{text.Place, ToBlame(text, values)}], text, number, overshoot);
                return;
            }
            ranOver_.insert(field);
            if (!offSheet_.contains(field)) {
                AddText(ranOverByPlace_[text.Place], text, number, overshoot);
            }
        });
    }

    void TellOffByCalibration() {
        for (const auto& [key, group] : offByCalibration_) {
            const InkedText& text = found_.TextAt(group.Worst().Text);
            found_.AddGroup(FindingKind::CalibrationOffForm, group,
                            {Subject(group, {"staat door de calibratie", "staan door de calibratie"}),
                             found_.OnHowMany(group), ListOf(ValuesOf(text)), Furthest(group)});
        }
    }

    void TellOffSheet() {
        TextGroups<OffSheet> off;
        ForEachText([&](const InkedText& text, std::size_t number) {
            const double overshoot = OffSheetBy(text);
            if (overshoot > OffSheetTwips) {
                AddText(off[{text.Place, MendOfOff(FieldOf(text))}], text, number, overshoot);
            }
        });
        for (const auto& [key, group] : off) {
            found_.AddGroup(
                FindingKind::SheetTextOff, group,
                {Subject(group, {"valt", "vallen"}), found_.OnHowMany(group), Furthest(group), key.second});
        }
    }

    void TellRanOver() {
        for (const auto& [place, group] : ranOverByPlace_) {
            found_.AddGroup(FindingKind::SheetOffForm, group,
                            {Subject(group, {"staat", "staan"}), found_.OnHowMany(group), Furthest(group)});
        }
    }

    std::string_view MendOfOff(const FieldOfForm& field) const {
        if (!found_.IsForms) {
            return MendList;
        }
        if (moved_.contains(field)) {
            return MendMoved;
        }
        return ranOver_.contains(field) ? MendLong : MendOff;
    }

    /// What one text does and by how much, or what "6 teksten van het onderste formulier" do.
    std::string Subject(const TextGroup& group, const Verb& verb) const {
        const WrongText& worst = group.Worst();
        const InkedText& text = found_.TextAt(worst.Text);
        if (group.Wrong.size() == 1) {
            return Capital(found_.FieldOn(text)).append(" ").append(verb.One) + ' ' +
                   Millimetres(worst.Twips);
        }
        std::string subject = std::to_string(group.Wrong.size()) + " teksten ";
        if (text.Place != 0) {
            subject.append("van het ").append(PlaceName(text.Place)).append(" ");
        }
        return subject.append(verb.More);
    }

    /// " Het verst: het bedrag in centen, 3,3 mm.", of several.
    std::string Furthest(const TextGroup& group) const {
        if (group.Wrong.size() == 1) {
            return {};
        }
        const WrongText& worst = group.Worst();
        return std::string(" Het verst: ").append(found_.NameOf(worst.One.Field)) + ", " +
               Millimetres(worst.Twips) + '.';
    }

    DocumentFindings& found_;
    machine::Locale& locale_;
    std::set<FieldOfForm> offSheet_;
    std::set<FieldOfForm> moved_; ///< off their form by their calibration
    TextGroups<OffByCalibration> offByCalibration_;
    std::set<FieldOfForm> ranOver_; ///< off it for another reason
    TextGroups<std::int16_t> ranOverByPlace_;
};

} // namespace

void CheckPlaces(DocumentFindings& findings, machine::Locale& locale) {
    PlaceCheck(findings, locale).Check();
}

} // namespace precheck
