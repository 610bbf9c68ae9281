#include "printmanager/frmPrintManagerLayout.h"

#include "printmanager/frmPrintManager.h"

namespace printmanager {

namespace {

constexpr double ClientWidth = 6840;

// Columns. The panel stands in the left column, so its own columns count from there.
constexpr double ListLeft = 120;
constexpr double ListWidth = 4920;
constexpr double FieldLeft = 2280;
constexpr double LabelWidth = FieldLeft - ListLeft;
constexpr double RuleLeft = 5160;
constexpr double ButtonLeft = 5280;
constexpr double ButtonWidth = 1440;
constexpr double ButtonHeight = 390;
constexpr double LabelHeight = 240;
constexpr double BoxHeight = 330;
constexpr double PanelFieldLeft = FieldLeft - ListLeft;
constexpr double PanelFieldWidth = ListWidth - PanelFieldLeft;
// A sign that something is wrong with a field stands before it.
constexpr double SignLeft = FieldLeft - BoxHeight - 90;
/// Of a mark before a box, with the gap behind it.
constexpr double MarkRoom = 300;

constexpr double FakeFormWidth = 5500;
constexpr double FakeFormHeight = 1035;

struct Place {
    forms::Control& Control;
    double Left;
    double Top;
    double Width;
    double Height;
};

struct LabelText {
    forms::Label& Label;
    const char* Text;
};

struct ButtonText {
    forms::CommandButton& Button;
    const char* Text;
};

struct ToolTip {
    forms::Control& Control;
    const char* Text;
};

struct SpokenName {
    forms::Control& Control;
    const char* Name;
};

struct PictureName {
    forms::PictureBox& Box;
    const char* Name;
};

void PlaceControls(frmPrintManager& form) {
    const Place places[] = {
        {form.Header1, ListLeft, 120, ListWidth, LabelHeight},
        {form.lstAfdrukken, ListLeft, 405, ListWidth, 1110},
        {form.Label4, ListLeft, 1710, LabelWidth, LabelHeight},
        {form.UserText(0), FieldLeft, 1665, 600, BoxHeight},
        {form.UpDown, FieldLeft + 600, 1665, 255, BoxHeight},
        {form.pictMyOrientation, FieldLeft + 990, 1590, 480, 480},
        {form.pictOrientation(0), FieldLeft + 990, 1590, 480, 480},
        {form.pictOrientation(1), FieldLeft + 990, 1590, 480, 480},
        {form.Label3, ListLeft, 2220, SignLeft - MarkRoom - ListLeft, LabelHeight},
        {form.cboPrinterSelect(0), FieldLeft, 2175, PanelFieldWidth, BoxHeight},
        {form.pictError, SignLeft, 2175, BoxHeight, BoxHeight},
        {form.chkMatrixPrinter, ListLeft, 2610, ListWidth, 285},
        {form.Label6, ListLeft, 3060, LabelWidth, LabelHeight},
        {form.ProgressBar, FieldLeft, 3045, PanelFieldWidth, 270},
        {form.cmdDetails, 3600, 3570, ButtonWidth, ButtonHeight},
        {form.lblPaperSize, ListLeft, 3570, 1440, LabelHeight},
        {form.lblPaperBin, 1680, 3570, 1440, LabelHeight},

        {form.Line1, RuleLeft, 120, 0, 3915},
        {form.Line2, RuleLeft + 15, 120, 0, 3915},
        {form.cmdPrint, ButtonLeft, 120, ButtonWidth, ButtonHeight},
        {form.cmdPrintVoorbeeld, ButtonLeft, 630, ButtonWidth, ButtonHeight},
        {form.cmdSetup, ButtonLeft, 1140, ButtonWidth, ButtonHeight},
        {form.cmdAnnuleren, ButtonLeft, 1650, ButtonWidth, ButtonHeight},
        {form.pictPrinter, 5580, DetailsClosed.PrinterTop, 840, 840},

        // A little wider than its fields: a part of a dot must not cost them their right edge.
        {form.pictDetails, ListLeft, 4155, ListWidth + 30, 3180},
        {form.Label2, 0, 0, ListWidth, LabelHeight},
        {form.lblPrinterSelect(2), 0, 330, LabelWidth, LabelHeight},
        {form.lblPrinterSelect(6), PanelFieldLeft, 330, PanelFieldWidth, LabelHeight},
        {form.lblPrinterSelect(1), 0, 615, LabelWidth, LabelHeight},
        {form.lblPrinterSelect(5), PanelFieldLeft, 615, PanelFieldWidth, LabelHeight},
        {form.lblPrinterSelect(3), 0, 900, LabelWidth, LabelHeight},
        {form.lblPrinterSelect(7), PanelFieldLeft, 900, PanelFieldWidth, LabelHeight},
        {form.lblPrinterSelect(4), 0, 1185, LabelWidth, 2 * LabelHeight},
        {form.lblPrinterSelect(8), PanelFieldLeft, 1185, PanelFieldWidth, 2 * LabelHeight},
        {form.Label8, 0, 1905, LabelWidth, LabelHeight},
        {form.cboPrinterSelect(3), PanelFieldLeft, 1860, PanelFieldWidth, BoxHeight},
        {form.Label7, 0, 2325, LabelWidth, LabelHeight},
        {form.cboPrinterSelect(1), PanelFieldLeft, 2280, PanelFieldWidth, BoxHeight},
        {form.Label5, 0, 2745, LabelWidth, LabelHeight},
        {form.cboPrinterSelect(2), PanelFieldLeft, 2700, PanelFieldWidth, BoxHeight},

        {form.Picture3, 180, 285, 480, 480},
        {form.Label10, 780, 225, 4540, LabelHeight},
        {form.ProgressBarSort, 780, 555, 4540, 270},
    };
    for (const Place& place : places) {
        place.Control.Move(place.Left, place.Top, place.Width, place.Height);
    }
}

void SetTexts(frmPrintManager& form) {
    const LabelText labels[] = {
        {form.Header1, "Afdrukken:"},
        {form.Label4, "Aantal copieën afdrukken: "},
        {form.Label3, "Printer:"},
        {form.Label6, "Progressie:"},
        {form.Label2, "Printerdetails:"},
        {form.lblPrinterSelect(2), "Printer:"},
        {form.lblPrinterSelect(1), "Status:"},
        {form.lblPrinterSelect(3), "Locatie:"},
        {form.lblPrinterSelect(4), "Commentaar:"},
        {form.Label8, "Papier oriëntatie"},
        {form.Label7, "Papierformaat:"},
        {form.Label5, "Papierlade:"},
        {form.Label10, "De gegevens worden gesorteerd..."},
    };
    for (const LabelText& row : labels) {
        row.Label.SetCaption(row.Text);
    }
    const ButtonText buttons[] = {
        {form.cmdPrint, "Af&drukken"},    {form.cmdPrintVoorbeeld, "&Voorbeeld"},
        {form.cmdSetup, "&Instellen..."}, {form.cmdAnnuleren, "&Sluiten"},
        {form.cmdDetails, "Details >>"},
    };
    for (const ButtonText& row : buttons) {
        row.Button.SetCaption(row.Text);
    }
    form.chkMatrixPrinter.SetCaption("Deze printer is een matrix printer.");
    form.UserText(0).SetText("1");

    const ToolTip toolTips[] = {
        {form.cmdSetup, "Opmaak instellingen..."},
        {form.cboPrinterSelect(0), "Geselecteerde printer"},
        {form.cmdDetails, "Printer details..."},
        {form.pictMyOrientation, "Papier oriëntatie"},
        {form.pictError, "Geen verbinding met deze printer..."},
        {form.cboPrinterSelect(1), "Formaat van het papier..."},
        {form.cboPrinterSelect(2), "De te gebruiken printerlade..."},
        {form.cboPrinterSelect(3), "Orientatie van het papier..."},
    };
    for (const ToolTip& row : toolTips) {
        row.Control.SetToolTipText(row.Text);
    }
    const SpokenName names[] = {
        {form.lstAfdrukken, "Afdrukken"},
        {form.UserText(0), "Aantal copieën afdrukken"},
        {form.cboPrinterSelect(0), "Printer"},
        {form.ProgressBar, "Progressie"},
        {form.cboPrinterSelect(1), "Papierformaat"},
        {form.cboPrinterSelect(2), "Papierlade"},
        {form.cboPrinterSelect(3), "Papier oriëntatie"},
        {form.ProgressBarSort, "De gegevens worden gesorteerd"},
        {form.pictDetails, "Printerdetails"},
        {form.pictFakeForm, "De gegevens worden gesorteerd"},
    };
    for (const SpokenName& row : names) {
        row.Control.SetAccessibleName(row.Name);
    }
    // What a printer or its driver calls itself may hold a "&".
    for (const auto& [index, label] : form.lblPrinterSelect) {
        label->SetUseMnemonic(false);
    }
}

void SetLooks(frmPrintManager& form) {
    const PictureName pictures[] = {
        {form.pictPrinter, "printer"},
        {form.Picture3, "printer"},
        {form.pictOrientation(0), "sheet-portrait"},
        {form.pictOrientation(1), "sheet-landscape"},
        {form.pictError, "no-connection"},
    };
    for (const PictureName& row : pictures) {
        row.Box.SetPicture(row.Name);
    }
    for (forms::Label* heading : {&form.Header1, &form.Label2}) {
        heading->SetFont({.Name = {}, .Size = 0, .Bold = true});
    }
    forms::Control* const white[] = {&form.lstAfdrukken, &form.UserText(0), &form.cboPrinterSelect(0),
                                     &form.cboPrinterSelect(1), &form.cboPrinterSelect(2)};
    for (forms::Control* box : white) {
        box->SetBackColor(forms::colour::WindowBackground);
    }
    form.cboPrinterSelect(3).SetBackColor(forms::colour::ButtonFace);
    form.Line1.SetForeColor(forms::colour::ButtonShadow);
    form.Line2.SetForeColor(forms::colour::WindowBackground);

    // Light falls on the panel's border from the top left.
    form.pictFakeForm.SetBackColor(forms::colour::ButtonFace);
    for (forms::LineControl* line : {&form.lFormX1, &form.lFormY1}) {
        line->SetForeColor(forms::colour::ButtonFace);
    }
    for (forms::LineControl* line : {&form.lFormX2, &form.lFormY2}) {
        line->SetForeColor(forms::colour::WindowBackground);
    }
    for (forms::LineControl* line : {&form.lFormX3, &form.lFormY3}) {
        line->SetForeColor(forms::colour::ButtonShadow);
    }
    for (forms::LineControl* line : {&form.lFormX4, &form.lFormY4}) {
        line->SetForeColor(forms::colour::DarkShadow);
    }
}

void SetStates(frmPrintManager& form) {
    forms::Control* const disabled[] = {&form.cmdPrint, &form.cmdPrintVoorbeeld, &form.cmdSetup,
                                        &form.cboPrinterSelect(3), &form.pictDetails};
    for (forms::Control* control : disabled) {
        control->SetEnabled(false);
    }
    forms::Control* const hidden[] = {&form.pictOrientation(0), &form.pictOrientation(1), &form.lblPaperSize,
                                      &form.lblPaperBin,        &form.pictDetails,        &form.pictFakeForm};
    for (forms::Control* control : hidden) {
        control->SetVisible(false);
    }
    form.cmdPrint.SetDefault(true);
    form.cmdAnnuleren.SetCancel(true);

    forms::Control* const tabOrder[] = {
        &form.lstAfdrukken,
        &form.UserText(0),
        &form.cboPrinterSelect(0),
        &form.chkMatrixPrinter,
        &form.cmdDetails,
        &form.cboPrinterSelect(3),
        &form.cboPrinterSelect(1),
        &form.cboPrinterSelect(2),
        &form.cmdPrint,
        &form.cmdPrintVoorbeeld,
        &form.cmdSetup,
        &form.cmdAnnuleren,
    };
    int place = 0;
    for (forms::Control* control : tabOrder) {
        control->SetTabIndex(place++);
    }
}

} // namespace

void LayOut(frmPrintManager& form) {
    form.SetCaption("Afdrukbeheer");
    form.Resize(ClientWidth, DetailsClosed.FormHeight);
    PlaceControls(form);
    SetTexts(form);
    SetLooks(form);
    SetStates(form);
}

void LayOutFakeForm(frmPrintManager& form) {
    form.pictFakeForm.SetVisible(false);
    form.pictFakeForm.Move(form.Width() / 2 - FakeFormWidth / 2, form.Height() / 3 - FakeFormHeight / 2,
                           FakeFormWidth, FakeFormHeight);
    form.pictFakeForm.BringToFront();

    struct BorderLine {
        forms::LineControl& Line;
        double X1;
        double X2;
        double Y1;
        double Y2;
    };
    constexpr double w = FakeFormWidth;
    constexpr double h = FakeFormHeight;
    const BorderLine border[] = {
        {form.lFormX1, 0, 0, 0, h - 15},
        {form.lFormX2, 15, 15, 30, h - 30},
        {form.lFormX3, w - 30, w - 30, 15, h - 15},
        {form.lFormX4, w - 15, w - 15, 0, h},
        {form.lFormY1, 15, w - 15, 0, 0},
        {form.lFormY2, 15, w - 30, 15, 15},
        {form.lFormY3, 15, w - 15, h - 30, h - 30},
        {form.lFormY4, 0, w, h - 15, h - 15},
    };
    for (const BorderLine& row : border) {
        row.Line.SetEnds(row.X1, row.Y1, row.X2, row.Y2);
    }
}

void LayOutMarks(frmPrintManager& form) {
    struct MarkPlace {
        int Number;
        double Left;
        double BoxTop;
    };
    // Before their boxes, where the labels have ended; behind those of the copies, whose label is longer.
    constexpr double side = 240;
    constexpr MarkPlace marks[] = {
        {0, SignLeft - MarkRoom, 2175},
        {1, PanelFieldLeft - MarkRoom, 2280},
        {2, PanelFieldLeft - MarkRoom, 2700},
        {3, 3900, 1665},
    };
    for (const MarkPlace& place : marks) {
        forms::PictureBox& mark = form.pictMelding(place.Number);
        mark.Move(place.Left, place.BoxTop + (BoxHeight - side) / 2, side, side);
        mark.Withhold();
    }
}

} // namespace printmanager
