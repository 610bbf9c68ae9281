#include "wizard/frmVoorcontrole.h"

#include <array>
#include <cstdio>
#include <utility>

#include "base/Resume.h"
#include "base/Text.h"
#include "composition/DocumentRun.h"
#include "forms/Desktop.h"
#include "machine/Clock.h"
#include "precheck/FindingsReport.h"
#include "precheck/Template.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/SheetSketch.h"

namespace wizard {

namespace {

constexpr int NoIndex = forms::Control::NoIndex;

constexpr const char* ProposedFile = "Voorcontrole drukkeuring.txt";
constexpr const char* NothingFound = "Er is niets gevonden dat uw drukkeuring kan bederven.";

/// Characters that a line of the list has room for.
constexpr std::size_t LongestEntry = 108;

/// A line of the list: its whole text stands below.
std::string Entry(const precheck::Finding& finding) {
    std::string whole = std::string(precheck::GravityText(finding.Gravity)) + ": " + finding.Wrong;
    if (base::text::Length(whole) <= LongestEntry) {
        return whole;
    }
    const std::string cut(base::text::Left(whole, LongestEntry));
    return cut.substr(0, cut.rfind(' ')) + " …";
}

std::string DayAndTime(const machine::DateTime& now) {
    char text[64];
    std::snprintf(text, sizeof text, "%02d-%02d-%04d, %02d:%02d", now.Day, now.Month, now.Year, now.Hour,
                  now.Minute);
    return text;
}

} // namespace

frmVoorcontrole::frmVoorcontrole(forms::Session& session, machine::Platform& platform, state::AppState& state,
                                 composition::PrinterSurface& printer,
                                 std::function<precheck::Findings()> check)
    : Form(session, "frmVoorcontrole"), Picture1(*this, "Picture1"),
      pictHeading(*this, "pictHeading", NoIndex, &Picture1),
      lblHeading(*this, "lblHeading", NoIndex, &Picture1), lineHeading(*this, "lineHeading"),
      lblLijst(*this, "lblLijst"), lstMeldingen(*this, "lstMeldingen"), lblFoutKop(*this, "lblFoutKop"),
      lblFout(*this, "lblFout"), lblHerstelKop(*this, "lblHerstelKop"), lblHerstel(*this, "lblHerstel"),
      lblSchets(*this, "lblSchets"), pictSchets(*this, "pictSchets"), lblCijfers(*this, "lblCijfers"),
      pictCijfers(*this, "pictCijfers"), cmdOpnieuw(*this, "cmdOpnieuw"), cmdSjabloon(*this, "cmdSjabloon"),
      cmdBewaren(*this, "cmdBewaren"), cmdSluiten(*this, "cmdSluiten"), platform_(platform), state_(state),
      printer_(printer), check_(std::move(check)) {
    LayOut();
    lstMeldingen.OnClick = [this] { ToonMelding(); };
    cmdOpnieuw.OnClick = [this] { Controleer(); };
    cmdSjabloon.OnClick = [this] { DrukSjabloonAf(); };
    cmdBewaren.OnClick = [this] { Bewaar(); };
    cmdSluiten.OnClick = [this] { Unload(); };
}

frmVoorcontrole::~frmVoorcontrole() = default;

void frmVoorcontrole::OnLoad() {
    Controleer();
}

void frmVoorcontrole::Controleer() {
    Desktop().HourglassOn();
    gevonden_ = check_();
    lstMeldingen.Clear();
    for (const precheck::Finding& finding : gevonden_) {
        lstMeldingen.AddItem(Entry(finding));
    }
    lstMeldingen.SetListIndex(gevonden_.empty() ? -1 : 0);
    ToonMelding();
    Desktop().HourglassOff();
}

void frmVoorcontrole::ToonMelding() {
    const bool any = lstMeldingen.ListIndex() != -1;
    const precheck::Finding finding =
        any ? gevonden_[static_cast<std::size_t>(lstMeldingen.ListIndex())] : precheck::Finding{};
    lblFout.SetCaption(any ? finding.Wrong : NothingFound);
    lblHerstel.SetCaption(finding.Mend);
    lblHerstelKop.SetVisible(any);
    const bool sheet = !finding.Sketch.Forms.empty() || !finding.Sketch.Texts.empty();
    const bool font = any && finding.Subject == precheck::Subject::OcrFont && !sheet;
    pictSchets.SetPage(nullptr);
    if (sheet) {
        base::Resume([&] { ToonBlad(finding.Sketch); });
    } else if (font) {
        base::Resume([&] { ToonLettertype(); });
    }
    const bool drawn = pictSchets.Page() != nullptr;
    lblSchets.SetVisible(drawn);
    pictSchets.SetVisible(drawn);
    lblCijfers.SetVisible(drawn && font);
    pictCijfers.SetVisible(drawn && font);
}

void frmVoorcontrole::DrukSjabloonAf() {
    if (state_.PrintManagerOpen || printManager_ != nullptr) {
        return;
    }
    static constexpr std::array<const char*, 1> titles = {precheck::TemplateTitle};
    ShowManager(printManager_, *this, platform_, state_, titles);
}

void frmVoorcontrole::Afdrukken(std::int16_t /*iMethod*/, std::int16_t /*num_copies*/, bool blnPrintPreview) {
    const WholeDocument whole(platform_.Printer);
    PrintHost host(printManager_, *this, platform_, state_, printer_);
    composition::ComposeJob(state_, platform_, printer_, host, blnPrintPreview,
                            [this] { precheck::DrawTemplate(state_, platform_); });
}

void frmVoorcontrole::Bewaar() {
    const std::string file = Desktop().AskFileToSave(ProposedFile);
    if (!file.empty()) {
        BewaarIn(file);
    }
}

void frmVoorcontrole::BewaarIn(const std::string& path) {
    if (!Desktop().SaveText(path, Verslag())) {
        Desktop().MsgBox("Het bestand kon niet worden geschreven.\r\n" + path,
                         forms::MessageIcon::Exclamation, state_.MessageTitle);
    }
}

/// What the list tells, as a text of lines.
std::string frmVoorcontrole::Verslag() const {
    return DayAndTime(platform_.Clock.Now()) + "\n" + precheck::ReportText(gevonden_);
}

} // namespace wizard
