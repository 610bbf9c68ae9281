#include <optional>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "composition/PrintIncassant.h"
#include "machine/Platform.h"
#include "precheck/Checks.h"
#include "precheck/ComposedDocument.h"
#include "precheck/CurrentSettings.h"
#include "precheck/DocumentFindings.h"
#include "precheck/DrawnDocument.h"
#include "precheck/FindingKinds.h"
#include "precheck/Stationery.h"
#include "precheck/Wording.h"
#include "state/CalibrationBlocks.h"

namespace precheck {

namespace {

void CheckCut(DocumentFindings& found) {
    for (const CutText& cut : found.Document.Cut) {
        const std::string whole = Quoted(cut.Whole);
        const std::string left = Quoted(cut.Left);
        const std::string_view field = found.NameOf(cut.Field);
        if (field == composition::NameOnStub) {
            found.Add(FindingKind::CreditorNameCut, {whole, left});
        } else if (field == composition::TownOnStub) {
            found.Add(FindingKind::CreditorTownCut, {whole, left});
        } else {
            found.Add(FindingKind::SheetTextCut, {Capital(field), whole, left});
        }
    }
}

/// The creditor's own letters are judged with the creditor, and those of a font that is not there with the
/// font.
void CheckLetters(DocumentFindings& found, machine::Fonts& fonts) {
    using Block = state::CalibratedBlock;
    for (const MissingLetters& missing : found.Document.Missing) {
        const Block block = found.Document.Fields[missing.Field].Block;
        if (block == Block::CreditorOnStub || block == Block::CreditorOnAccept ||
            IsReplaced(fonts, missing.Font)) {
            continue;
        }
        std::string letters;
        for (const char32_t letter : missing.Letters) {
            letters += (letters.empty() ? "" : " ") + base::text::Encode(letter);
        }
        Finding& finding = found.Add(FindingKind::FontLetters,
                                     {Quoted(missing.Font), found.NameOf(missing.Field), Shown(letters)});
        if (block == Block::OcrLine && found.IsForms) {
            finding.Gravity = Gravity::Spoils;
        }
    }
}

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
    DocumentFindings found(current.State, intent, area, document, findings);
    CheckPlaces(found, platform.Locale);
    if (found.IsForms) { // a long name of a list runs into the next column, and nobody can mend it
        CheckOverlaps(found);
    }
    CheckCut(found);
    CheckLetters(found, platform.Fonts);
    SortFindings(findings);
    return findings;
}

} // namespace precheck
