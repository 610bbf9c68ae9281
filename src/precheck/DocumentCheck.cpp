#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "composition/DocumentRun.h"
#include "composition/FormPlace.h"
#include "composition/SurfaceRules.h"
#include "machine/Platform.h"
#include "precheck/Checks.h"
#include "precheck/ComposedDocument.h"
#include "precheck/CurrentSettings.h"
#include "precheck/DrawnDocument.h"
#include "precheck/FindingKinds.h"
#include "precheck/Lengths.h"
#include "precheck/Stationery.h"
#include "precheck/Wording.h"
#include "state/CalibrationBlocks.h"

namespace precheck {

namespace {

/// A third of a dot at 180 to the inch: less is nothing that paper shows.
constexpr double OffSheetTwips = ToTwips(0.05);
/// In both directions: less is where two texts touch.
constexpr double OverlapTwips = ToTwips(0.1);

constexpr std::string_view MendOff =
    "Kies het formaat van uw acceptgiropapier, of een printer die dichter bij de rand kan afdrukken.";
constexpr std::string_view MendLong = "Kort de tekst af, of verklein in Tarvik de letters.";
constexpr std::string_view MendList = "Kies een groter papier.";
constexpr std::string_view MendMoved = "Verbeter de calibratie in Tarvik.";

/// By how much ink stands out of an area, in the direction in which it stands out most.
double Overshoot(const SheetPlace& ink, double left, double top, double right, double bottom) {
    return std::max({left - ink.Left, top - ink.Top, ink.Right - right, ink.Bottom - bottom});
}

/// A form of a batch, by its page and its place there.
using FormOnPage = std::pair<int, std::int16_t>;

/// The same thing found on many forms: how often, and where it is worst.
struct Worst {
    std::int32_t Count = 0;
    double Twips = 0;
    std::size_t Text = 0;
    std::size_t Other = 0;
    /// Of what is found between two texts: where forms lie over each other these are fewer than the pairs.
    std::set<FormOnPage> Forms{};

    void Add(double twips, std::size_t text, std::size_t other = 0) {
        if (++Count == 1 || twips > Twips) {
            Twips = twips;
            Text = text;
            Other = other;
        }
    }
};

/// What is found, by what it is found of, in the order in which it came up.
template <class Key>
class WorstOf {
  public:
    Worst& operator[](const Key& key) {
        const auto known =
            std::find_if(found_.begin(), found_.end(), [&](const auto& one) { return one.first == key; });
        return known != found_.end() ? known->second : found_.emplace_back(key, Worst{}).second;
    }
    bool Has(const Key& key) const {
        return std::any_of(found_.begin(), found_.end(), [&](const auto& one) { return one.first == key; });
    }
    auto begin() const { return found_.begin(); }
    auto end() const { return found_.end(); }

  private:
    std::vector<std::pair<Key, Worst>> found_;
};

using FieldAndPlace = std::pair<std::size_t, std::int16_t>;
using TwoFields = std::pair<std::size_t, std::size_t>;

/// Looks at a document that has been drawn.
class DocumentCheck {
  public:
    DocumentCheck(const state::AppState& state, machine::Platform& platform, const Intent& intent,
                  const machine::SheetArea& sheet, const DrawnDocument& document, Findings& findings)
        : state_(state), platform_(platform), isForms_(intent.Document == composition::DocumentTestForms),
          isWhole_(IsComposedWhole(intent)), sheet_(sheet), document_(document), findings_(findings),
          forms_(FormsOf(state)) {}

    void Check() {
        if (isForms_) {
            CheckForms();
        }
        CheckSheet();
        if (isForms_) { // a long name of a list runs into the next column, and nobody can mend it
            CheckOverlaps();
        }
        CheckCut();
        CheckLetters();
    }

  private:
    const InkedText& TextAt(std::size_t number) const { return document_.Texts[number]; }
    std::string_view NameOf(std::size_t field) const { return document_.Fields[field].Name; }

    /// "het bedrag in centen (onderste formulier)"
    std::string FieldOn(const InkedText& text) const {
        std::string phrase(NameOf(text.Field));
        if (text.Place != 0) {
            phrase.append(" (").append(PlaceName(text.Place)).append(")");
        }
        return phrase;
    }

    /// ", op 84 formulieren", where it is more than one and all of the batch has been composed.
    std::string OnHowMany(std::int32_t count) const {
        if (count == 1 || !isWhole_) {
            return {};
        }
        return (isForms_ ? ", op " : ", in ") + std::to_string(count) +
               (isForms_ ? " formulieren" : " regels");
    }

    SheetSketch SketchOf(const InkedText& wrong) const {
        SheetSketch sketch;
        sketch.Sheet = sheet_;
        if (isForms_ && IsKnownType(state_)) {
            sketch.Forms = forms_;
        }
        for (const InkedText& text : document_.Texts) {
            if (text.Page == wrong.Page) {
                sketch.Texts.push_back(text.Ink);
            }
        }
        sketch.Wrong.push_back(wrong.Ink);
        return sketch;
    }

    Finding& Add(FindingKind kind, std::initializer_list<std::string_view> values) {
        findings_.push_back(MakeFinding(kind, values));
        if (!isForms_) {
            findings_.back().Gravity = Gravity::LookAt; // the institute judges the forms
        }
        return findings_.back();
    }

    std::string_view MendOfOff(const FieldAndPlace& key) const {
        if (!isForms_) {
            return MendList;
        }
        if (moved_.Has(key)) {
            return MendMoved;
        }
        return ranOver_.Has(key) ? MendLong : MendOff;
    }

    void CheckSheet() {
        WorstOf<FieldAndPlace> off;
        for (std::size_t i = 0; i < document_.Texts.size(); ++i) {
            const InkedText& text = TextAt(i);
            const double overshoot =
                Overshoot(text.Ink, sheet_.Left, sheet_.Top, sheet_.Right, sheet_.Bottom);
            if (overshoot > OffSheetTwips) {
                off[{text.Field, text.Place}].Add(overshoot, i);
            }
        }
        for (const auto& [key, worst] : off) {
            const InkedText& text = TextAt(worst.Text);
            Add(FindingKind::SheetTextOff,
                {Capital(FieldOn(text)), Millimetres(worst.Twips), OnHowMany(worst.Count), MendOfOff(key)})
                .Sketch = SketchOf(text);
        }
        // What is off the sheet has been told; what stays on it may still be on the next form.
        for (const auto& [key, worst] : ranOver_) {
            if (!off.Has(key)) {
                const InkedText& text = TextAt(worst.Text);
                Add(FindingKind::SheetOffForm,
                    {Capital(FieldOn(text)), Millimetres(worst.Twips), OnHowMany(worst.Count)})
                    .Sketch = SketchOf(text);
            }
        }
    }

    /// Texts that do not stay on their form: those that their calibration has moved off it, and those that
    /// would not fit without it either.
    void CheckForms() {
        for (std::size_t i = 0; i < document_.Texts.size(); ++i) {
            const InkedText& text = TextAt(i);
            const double overshoot = OffForm(text, text.Ink);
            if (overshoot <= OffSheetTwips) {
                continue;
            }
            const composition::RowShift shift = ShiftOf(text);
            const SheetPlace unmoved = {text.Ink.Left - shift.x, text.Ink.Top - shift.y,
                                        text.Ink.Right - shift.x, text.Ink.Bottom - shift.y};
            const bool byCalibration = OffForm(text, unmoved) < overshoot / 2;
            (byCalibration ? moved_ : ranOver_)[{text.Field, text.Place}].Add(overshoot, i);
        }
        for (const auto& [key, worst] : moved_) {
            const InkedText& text = TextAt(worst.Text);
            Add(FindingKind::CalibrationOffForm, {Capital(FieldOn(text)), Millimetres(worst.Twips),
                                                  CalibrationsOf(text), OnHowMany(worst.Count)})
                .Sketch = SketchOf(text);
        }
    }

    double OffForm(const InkedText& text, const SheetPlace& ink) const {
        const SheetPlace& form = forms_[forms_.size() == 1 ? 0 : static_cast<std::size_t>(text.Place - 1)];
        return Overshoot(ink, form.Left, form.Top, form.Right, form.Bottom);
    }

    /// Calls `each` with key, text and shift of every calibration that moves the text to the right or down.
    template <class Each>
    void ForEachCalibration(const InkedText& text, Each each) const {
        using Block = state::CalibratedBlock;
        const Block own = document_.Fields[text.Field].Block;
        const auto place = static_cast<std::size_t>(text.Place - 1);
        for (const auto& block : state::CalibrationBlocks(state_)) {
            if (block.Block != own && (block.Block != Block::Form || own == Block::OcrLine)) {
                continue;
            }
            const auto value = [&](std::string_view direction, const std::string& stored, bool right,
                                   bool down) {
                const double shift = composition::Kalibreer(state_, platform_.Locale, 0, stored);
                each(block.Stem, direction, place, stored,
                     composition::RowShift{right ? shift : 0, down ? shift : 0});
            };
            const bool xCountsTwice = block.Block == Block::CreditorOnAccept;
            value(state::DirectionX, block.X[place], true, xCountsTwice);
            if (!xCountsTwice) {
                value(state::DirectionY, block.Y[place], false, true);
            }
        }
    }

    composition::RowShift ShiftOf(const InkedText& text) const {
        composition::RowShift sum;
        ForEachCalibration(text, [&](auto, auto, auto, const auto&, const composition::RowShift& shift) {
            sum.x += shift.x;
            sum.y += shift.y;
        });
        return sum;
    }

    /// `OCRTop2 = "15,00", OCRLinks2 = "0,30"`
    std::string CalibrationsOf(const InkedText& text) const {
        std::string list;
        ForEachCalibration(text, [&](std::string_view stem, std::string_view direction, std::size_t place,
                                     const std::string& stored, const composition::RowShift& shift) {
            if (shift.x == 0 && shift.y == 0) {
                return;
            }
            list.append(list.empty() ? "" : ", ").append(state::CalibrationKey(stem, direction, place));
            list.append(" = ").append(Quoted(stored));
        });
        return list;
    }

    void CheckOverlaps() {
        WorstOf<TwoFields> overlaps;
        std::vector<std::size_t> page;
        for (std::size_t from = 0; from < document_.Texts.size();) {
            page.clear();
            std::size_t to = from;
            for (; to < document_.Texts.size() && TextAt(to).Page == TextAt(from).Page; ++to) {
                page.push_back(to);
            }
            CheckPage(page, overlaps);
            from = to;
        }
        for (const auto& [key, worst] : overlaps) {
            const InkedText& one = TextAt(worst.Text);
            const InkedText& other = TextAt(worst.Other);
            Finding& finding =
                Add(FindingKind::SheetTextsOverlap,
                    {Capital(FieldOn(one)), FieldOn(other), Millimetres(Across(one.Ink, other.Ink)),
                     Millimetres(Down(one.Ink, other.Ink)),
                     OnHowMany(static_cast<std::int32_t>(worst.Forms.size()))});
            finding.Sketch = SketchOf(one);
            finding.Sketch.Wrong.push_back(other.Ink);
        }
    }

    static double Across(const SheetPlace& one, const SheetPlace& other) {
        return std::min(one.Right, other.Right) - std::max(one.Left, other.Left);
    }
    static double Down(const SheetPlace& one, const SheetPlace& other) {
        return std::min(one.Bottom, other.Bottom) - std::max(one.Top, other.Top);
    }

    /// From the top of the page down, each text is held against those only that begin before it ends.
    void CheckPage(std::vector<std::size_t>& page, WorstOf<TwoFields>& overlaps) const {
        std::stable_sort(page.begin(), page.end(), [&](std::size_t one, std::size_t other) {
            return TextAt(one).Ink.Top < TextAt(other).Ink.Top;
        });
        for (std::size_t i = 0; i < page.size(); ++i) {
            const InkedText& upper = TextAt(page[i]);
            for (std::size_t j = i + 1; j < page.size(); ++j) {
                const InkedText& lower = TextAt(page[j]);
                if (lower.Ink.Top >= upper.Ink.Bottom - OverlapTwips) {
                    break;
                }
                const double least = std::min(Across(upper.Ink, lower.Ink), Down(upper.Ink, lower.Ink));
                if (least > OverlapTwips) {
                    Worst& worst = overlaps[std::minmax(upper.Field, lower.Field)];
                    worst.Add(least, page[i], page[j]);
                    worst.Forms.insert({{upper.Page, upper.Place}, {lower.Page, lower.Place}});
                }
            }
        }
    }

    void CheckCut() {
        for (const CutText& cut : document_.Cut) {
            const std::string whole = Quoted(cut.Whole);
            const std::string left = Quoted(cut.Left);
            if (cut.Whole == state_.IncassantBegunstigde) {
                Add(FindingKind::CreditorNameCut, {whole, left});
            } else if (cut.Whole == state_.IncassantWoonplaats) {
                Add(FindingKind::CreditorTownCut, {whole, left});
            } else {
                Add(FindingKind::SheetTextCut, {Capital(NameOf(cut.Field)), whole, left});
            }
        }
    }

    /// The creditor's own letters are judged with the creditor, and those of a font that is not there with
    /// the font.
    void CheckLetters() {
        using Block = state::CalibratedBlock;
        for (const MissingLetters& missing : document_.Missing) {
            const Block block = document_.Fields[missing.Field].Block;
            if (block == Block::CreditorOnStub || block == Block::CreditorOnAccept ||
                IsReplaced(platform_.Fonts, missing.Font)) {
                continue;
            }
            std::string letters;
            for (const char32_t letter : missing.Letters) {
                letters += (letters.empty() ? "" : " ") + base::text::Encode(letter);
            }
            Finding& finding =
                Add(FindingKind::FontLetters, {Quoted(missing.Font), NameOf(missing.Field), Shown(letters)});
            if (block == Block::OcrLine && isForms_) {
                finding.Gravity = Gravity::Spoils;
            }
        }
    }

    const state::AppState& state_;
    machine::Platform& platform_;
    bool isForms_;
    bool isWhole_; ///< and not the first forms alone
    const machine::SheetArea& sheet_;
    const DrawnDocument& document_;
    Findings& findings_;
    std::vector<SheetPlace> forms_;
    WorstOf<FieldAndPlace> moved_;   ///< off their form by their calibration
    WorstOf<FieldAndPlace> ranOver_; ///< off it for another reason
};

} // namespace

Findings CheckDocument(const state::AppState& state, machine::Platform& platform, const Intent& intent,
                       const std::optional<machine::SheetArea>& sheet,
                       const std::optional<machine::SheetArea>& measured) {
    Findings findings;
    CurrentSettings current = ReadCurrentSettings(state, platform.Registry);
    if (!current.Readable()) {
        return findings;
    }
    const machine::SheetArea area = sheet.value_or(StationeryOf(current.State));
    LetterMeasures measures(platform.Fonts);
    DrawnDocument document(measures, area);
    ComposeOn(document, current.State, platform, intent, measured.value_or(area));
    DocumentCheck(current.State, platform, intent, area, document, findings).Check();
    SortFindings(findings);
    return findings;
}

} // namespace precheck
