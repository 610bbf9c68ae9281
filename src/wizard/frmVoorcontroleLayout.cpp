// What the list of the precheck looks like; twips.

#include "forms/FormPeer.h"
#include "wizard/SheetSketch.h"
#include "wizard/frmVoorcontrole.h"

namespace wizard {

namespace {

constexpr double ClientWidth = 9900;
constexpr double ClientHeight = 7350;
constexpr double Margin = 240;
constexpr double HeadingHeight = 480;
constexpr double PictureSide = 360;
constexpr double LabelHeight = 240;
constexpr double ListTop = 930;
constexpr double ListHeight = 1890;

// The texts at the left, the sketch at the right.
constexpr double TextTop = 3060;
constexpr double TextWidth = 5640;
constexpr double WrongHeight = 1440;
constexpr double MendTop = TextTop + LabelHeight + 30 + WrongHeight + 120;
constexpr double MendHeight = 1440;
constexpr double SketchLeft = Margin + TextWidth + Margin;
constexpr double SketchWidth = ClientWidth - Margin - SketchLeft;
constexpr double SketchTop = TextTop + LabelHeight + 60;
constexpr double SheetHeight = MendTop + LabelHeight + 30 + MendHeight - SketchTop;
constexpr double DigitsHeight = 690;
constexpr double TrueTop = SketchTop + DigitsHeight + 180;

constexpr double ButtonTop = 6765;
constexpr double ButtonHeight = 390;

constexpr forms::Colour Paper = forms::colour::Rgb(255, 255, 255);

} // namespace

void frmVoorcontrole::LayOut() {
    SetCaption("Voorcontrole");
    Resize(ClientWidth, ClientHeight + forms::TitleBarHeight);

    struct Place {
        forms::Control& Control;
        double Left;
        double Top;
        double Width;
        double Height;
    };
    const Place places[] = {
        {Picture1, 0, 0, ClientWidth, HeadingHeight},
        {pictHeading, Margin, 60, PictureSide, PictureSide},
        {lblHeading, Margin + PictureSide + 120, 120, ClientWidth - 2 * Margin - PictureSide - 120,
         LabelHeight},
        {lineHeading, 0, HeadingHeight, ClientWidth, 0},
        {lblLijst, Margin, 630, ClientWidth - 2 * Margin, LabelHeight},
        {lstMeldingen, Margin, ListTop, ClientWidth - 2 * Margin, ListHeight},
        {lblFoutKop, Margin, TextTop, TextWidth, LabelHeight},
        {lblFout, Margin, TextTop + LabelHeight + 30, TextWidth, WrongHeight},
        {lblHerstelKop, Margin, MendTop, TextWidth, LabelHeight},
        {lblHerstel, Margin, MendTop + LabelHeight + 30, TextWidth, MendHeight},
        {lblSchets, SketchLeft, TextTop, SketchWidth, LabelHeight},
        {pictSchets, SketchLeft, SketchTop, SketchWidth, SheetHeight},
        {lblCijfers, SketchLeft, TrueTop, SketchWidth, LabelHeight},
        {pictCijfers, SketchLeft, TrueTop + LabelHeight + 60, SketchWidth, DigitsHeight},
        {cmdOpnieuw, Margin, ButtonTop, 2340, ButtonHeight},
        {cmdSjabloon, Margin + 2340 + 120, ButtonTop, 2340, ButtonHeight},
        {cmdBewaren, 6630, ButtonTop, 1440, ButtonHeight},
        {cmdSluiten, ClientWidth - Margin - 1440, ButtonTop, 1440, ButtonHeight},
    };
    for (const Place& place : places) {
        place.Control.Move(place.Left, place.Top, place.Width, place.Height);
    }

    struct LabelText {
        forms::Label& Label;
        const char* Text;
    };
    const LabelText labels[] = {
        {lblHeading, "Voorcontrole van de drukkeuring"},
        {lblLijst, "Dit vraagt uw aandacht voordat u papier gebruikt:"},
        {lblFoutKop, "Wat er niet klopt"},
        {lblHerstelKop, "Hoe u het herstelt"},
        {lblCijfers, "Zo horen de cijfers van OCR-B te zijn:"},
    };
    for (const LabelText& row : labels) {
        row.Label.SetCaption(row.Text);
    }
    for (forms::Label* heading : {&lblHeading, &lblFoutKop, &lblHerstelKop}) {
        heading->SetFont({.Name = {}, .Size = 0, .Bold = true});
    }
    // They hold what the user has typed and what printers are called: "&" is a character there.
    for (forms::Label* label : {&lblFout, &lblHerstel, &lblSchets}) {
        label->SetUseMnemonic(false);
    }
    cmdOpnieuw.SetCaption("&Opnieuw controleren");
    cmdSjabloon.SetCaption("S&jabloon afdrukken...");
    cmdBewaren.SetCaption("&Bewaren...");
    cmdSluiten.SetCaption("&Sluiten");
    cmdSluiten.SetDefault(true);
    cmdSluiten.SetCancel(true);

    Picture1.SetBackColor(forms::colour::WindowBackground);
    pictHeading.SetPicture("message-exclamation");
    lineHeading.SetForeColor(forms::colour::ButtonShadow);
    lstMeldingen.SetBackColor(forms::colour::WindowBackground);
    lstMeldingen.SetAccessibleName("Wat uw aandacht vraagt");
    pictSchets.SetBackColor(Paper);
    pictCijfers.SetBackColor(Paper);
    pictCijfers.SetPicture("ocr-b-digits");
    pictCijfers.SetAccessibleName("De cijfers van OCR-B");

    forms::Control* const tabOrder[] = {&lstMeldingen, &cmdOpnieuw, &cmdSjabloon, &cmdBewaren, &cmdSluiten};
    int place = 0;
    for (forms::Control* control : tabOrder) {
        control->SetTabIndex(place++);
    }
}

void frmVoorcontrole::ToonBlad(const precheck::SheetSketch& sketch) {
    lblSchets.SetCaption("Het blad, met in rood wat niet klopt:");
    pictSchets.SetToolTipText("Schets van het blad");
    pictSchets.SetHeight(SheetHeight);
    pictSchets.SetPage(DrawSheet(platform_.Bitmaps, sketch, SketchWidth, SheetHeight));
}

void frmVoorcontrole::ToonLettertype() {
    lblSchets.SetCaption("Zo drukt " + state_.GMUFontName + ":");
    pictSchets.SetToolTipText("De cijfers van " + state_.GMUFontName);
    pictSchets.SetHeight(DigitsHeight);
    pictSchets.SetPage(DrawDigits(platform_.Bitmaps, state_.GMUFontName, SketchWidth, DigitsHeight));
}

} // namespace wizard
