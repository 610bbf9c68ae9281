// What the form for the initialisation time looks like; twips.

#include "forms/FormPeer.h"
#include "printmanager/frmPrintManagerSetup.h"

namespace printmanager {

namespace {

constexpr double ClientWidth = 6240;
constexpr double ClientHeight = 2670;
constexpr double Margin = 180;
constexpr double HeadingHeight = 480;
constexpr double PictureSide = 360;
constexpr double FieldLeft = 2520;
constexpr double LabelHeight = 240;
constexpr double BoxHeight = 330;
constexpr double ButtonTop = 2145;
constexpr double ButtonHeight = 390;

} // namespace

void frmPrintManagerSetup::LayOut() {
    SetCaption("Printer initialisatie");
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
        {Label1, 2 * Margin + PictureSide - 60, 120, ClientWidth - 3 * Margin - PictureSide, LabelHeight},
        {lineHeading, 0, HeadingHeight, ClientWidth, 0},
        {Label2, Margin, 555, ClientWidth - 2 * Margin, 3 * LabelHeight},
        {Label3, Margin, 1320, FieldLeft - 2 * Margin, LabelHeight},
        {UserText(1), FieldLeft, 1275, 1080, BoxHeight},
        {Label4, Margin, 1695, FieldLeft - 2 * Margin, LabelHeight},
        {UserText(0), FieldLeft, 1650, 1080, BoxHeight},
        {UpDown, FieldLeft + 1080, 1650, 255, BoxHeight},
        {cmdOK, 3240, ButtonTop, 1350, ButtonHeight},
        {cmdClose, 4710, ButtonTop, 1350, ButtonHeight},
    };
    for (const Place& place : places) {
        place.Control.Move(place.Left, place.Top, place.Width, place.Height);
    }

    struct LabelText {
        forms::Label& Label;
        const char* Text;
    };
    const LabelText labels[] = {
        {Label1, "Printer initialisatie"},
        {Label2,
         "Wanneer uw printer eventuele lade wijzigingen c.q. papierformaat wijzigingen niet correct verwerkt "
         "dan kunt u hier de initialisatietijd wijzigen."},
        {Label3, "Huidige initialisatietijd:"},
        {Label4, "Nieuwe initialisatietijd:"},
    };
    for (const LabelText& row : labels) {
        row.Label.SetCaption(row.Text);
    }
    cmdOK.SetCaption("OK");
    cmdClose.SetCaption("&Annuleren");
    cmdOK.SetDefault(true);
    cmdClose.SetCancel(true);

    Picture1.SetBackColor(forms::colour::WindowBackground);
    pictHeading.SetPicture("printer");
    lineHeading.SetForeColor(forms::colour::ButtonShadow);
    Label1.SetFont({.Name = {}, .Size = 0, .Bold = true});
    UserText(0).SetBackColor(forms::colour::WindowBackground);
    UserText(0).SetAccessibleName("Nieuwe initialisatietijd");
    UserText(1).SetBackColor(forms::colour::ButtonFace);
    UserText(1).SetAccessibleName("Huidige initialisatietijd");
    UserText(1).SetLocked(true);

    forms::Control* const tabOrder[] = {&UserText(0), &cmdOK, &cmdClose, &UserText(1)};
    int place = 0;
    for (forms::Control* control : tabOrder) {
        control->SetTabIndex(place++);
    }
}

} // namespace printmanager
