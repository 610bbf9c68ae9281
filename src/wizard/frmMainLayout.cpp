// What the wizard looks like: every text and place on its pages, in twips, in reading order.

#include "wizard/StartState.h"
#include "wizard/frmMain.h"

namespace wizard {

namespace {

constexpr double FormWidth = 10200;
constexpr double ClientHeight = 7200;
constexpr double PanelHeight = 6015;
constexpr double RuleHeight = 15;
constexpr double ButtonTop = 6675;
constexpr double ButtonHeight = 390;

constexpr double Margin = 300;
constexpr double TextWidth = FormWidth - 2 * Margin;
constexpr double Indent = 600; // of what stands below an option
constexpr double NoteIndent = 1320;
constexpr double FieldLeft = 2700;
constexpr double FieldHeight = 330;
// Left edges of the buttons, with which the fields of the last page line up.
constexpr double BackLeft = 5265;
constexpr double NextLeft = 6825;

constexpr forms::Colour NoteColour = forms::colour::Rgb(0xB0, 0x30, 0x10);

enum class Style { Plain, Bold, Note };

/// A text that only stands on a page.
struct PageText {
    int Page;
    const char* Text;
    double Left;
    double Top;
    double Width;
    double Height;
    Style Look = Style::Plain;
};

constexpr PageText PageTexts[] = {
    {0,
     "Met dit programma kunt u IBAN-acceptgiroformulieren gaan afdrukken welke bestemd zijn voor de "
     "drukkeuring.",
     Margin, 165, TextWidth, 240},
    {0, "Voor de test zijn IBAN-Acceptgiroformulieren nodig.", Margin, 435, TextWidth, 240},
    {0,
     "Voor de productie van de testpartij wordt gebruik gemaakt van de instellingen zoals deze binnen Tarvik "
     "zijn "
     "ingesteld. ",
     Margin, 705, TextWidth, 480},
    {0, "Instellingen vanuit Tarvik ( u dient een correct OCR-B font te gebruiken ):", Margin, 1275,
     TextWidth, 240, Style::Bold},
    {0, "OCR-B fontnaam:", Margin, 1575, 2280, 240},
    {0, "Ingestelde contractsoort:", Margin, 2145, 2280, 240},
    {0, "Incassant:", Margin, 2535, 2280, 240},
    {0, "Adres:", Margin, 2940, 2280, 240},
    {0, "Postcode:", Margin, 3345, 2280, 240},
    {0, "Woonplaats:", Margin, 3750, 2280, 240},
    {0, "IBAN:", Margin, 4155, 2280, 240},
    {0, "Controleer uw IBAN nummer voordat u verder gaat.", 7350, 4155, 2550, 480, Style::Note},
    {0, "Let op:", Margin, 4725, 960, 240, Style::Bold},
    {0, "Bedragen en IBAN-banknummers worden automatisch gegenereerd.", NoteIndent, 4725, 8580, 240},
    {0, "De gebruikte persoonsgegevens zijn automatisch gegenereerd. ", NoteIndent, 4995, 8580, 240},

    {1, "Selecteer de te volgen procedure voor de aanmaak van de testpartij:", Margin, 165, TextWidth, 240,
     Style::Bold},
    {1,
     "Een testpartij aanmaken en deze ter goedkeuring aanbieden aan een door Acceptgiro B.V. aangewezen "
     "testinstituut.",
     Indent, 870, 9300, 240},
    {1,
     "Met deze test wordt nagegaan u IBAN-Acceptgiro’s kan aanmaken, die zonder problemen door de bancaire "
     "instellingen kunnen worden verwerkt.",
     Indent, 1155, 9300, 480},
    {1,
     "Indien u al over een B-of C-Acceptgirocontract beschikt, maar met een ander rekeningnummer "
     "Acceptgiro’s wil "
     "verspreiden, kan een verkorte procedure worden gevolgd. ",
     Indent, 2145, 9300, 480},
    {1, "De verkorte procedure wijkt op de volgende punten af van de algemene procedure:", Indent, 2715, 9300,
     240},
    {1,
     "In plaats van een testpartij kan worden volstaan met vijf nieuwe en volgens de richtlijnen geprinte "
     "IBAN-Acceptgiroformulieren.",
     900, 3045, 9000, 480},
    {1,
     "U vermeldt op het formulier ‘Aanvraag drukkeuring’ naast het nieuwe rekeningnummer (IBAN) ook het "
     "rekeningnummer (IBAN) waarop u al een bestaand contract heeft.",
     900, 3585, 9000, 480},
    {1, "Let op:", Indent, 4245, 960, 240, Style::Bold},
    {1, "Dit contract moet reeds verkregen zijn met Tarvik en met dezelfde printer.", 1620, 4245, 8280, 240},

    {2,
     "De omvang van de testpartij welke u moet aanleveren hangt af van het soort acceptgirocontract en de "
     "hoeveelheid te verspreiden IBAN-acceptgiroformulieren.",
     Margin, 165, TextWidth, 480},
    {2, "Selecteer de optie welke het beste bij u past:", Margin, 855, TextWidth, 240, Style::Bold},

    {3,
     "Indien u zelf het aantal af te drukken IBAN-acceptgiroformulieren nog wilt wijzigen dan kunt u dat "
     "hier doen.",
     Margin, 165, TextWidth, 240},
    {3, "Aantal af te drukken IBAN-acceptgiroformulieren:", Margin, 645, 4800, 240, Style::Bold},
    {3, "Klik op 'Afdrukken' om de IBAN-acceptgiroformulieren (testdocumenten) af te drukken...", Margin,
     1110, TextWidth, 240},
    {3, "Let op:", Margin, 1575, 960, 240, Style::Bold},
    {3,
     "Controleer dat het acceptgiropapier recht en vast in de printerlade ligt en gebruik ALTIJD het "
     "testsjabloon om "
     "de acceptgiro's te controleren voordat u de drukkeuring opstuurt.",
     NoteIndent, 1575, 8580, 480},
    {3,
     "Bij een foutieve drukkeuring zal u een afkeuring ontvangen. Deze afkeuring zal gebaseerd zijn op de "
     "door u "
     "gebruikte hardware i.c. printer danwel de door u gedane instellingen/calibratie.",
     NoteIndent, 2130, 8580, 480},
    {3, "Ondor BV kan geen aansprakelijkheid aanvaarden voor de door u gebruikte hardware en instellingen.",
     NoteIndent, 2685, 8580, 240},
    {3, "Schema aantal af te drukken acceptgiro's:", Margin, 3180, TextWidth, 240, Style::Bold},
    {3, "Servicebureau's:", Margin, 3480, 4950, 240},
    {3, "250 testdocumenten", BackLeft, 3480, 4635, 240},
    {3, "Verspreiding van meer dan 20.000 acceptgiro's:", Margin, 3765, 4950, 240},
    {3, "250 testdocumenten", BackLeft, 3765, 4635, 240},
    {3, "Verspreiding van minder dan 20.000 acceptgiro's:", Margin, 4050, 4950, 240},
    {3, "100 testdocumenten", BackLeft, 4050, 4635, 240},
    {3,
     "Het formulier 'Aanvraag drukkeuring' moet u volledig invullen en samen met de testpartij opsturen ter "
     "beoordeling van de testinstantie",
     Margin, 4560, TextWidth, 480},
};

/// Small pictures before the lines of a list.
struct PagePicture {
    int Page;
    const char* Picture;
    double Left;
    double Top;
    double Size;
};

constexpr PagePicture PagePictures[] = {
    {1, "bullet", Indent, 3075, 180},
    {1, "bullet", Indent, 3615, 180},
};

/// The line at the foot of the pages that the user leaves with the button; its middle is bold.
constexpr PageText NextHint[] = {
    {0, "Klik op ", Margin, 5595, 540, 240},
    {0, "&Volgende >", 840, 5595, 990, 240, Style::Bold},
    {0, "om verder te gaan", 1830, 5595, 3000, 240},
};
constexpr int LastPageWithHint = 2;

/// A box: its element, left, top, width, longest text, key filter, place in the tab order and spoken
/// name.
struct Box {
    int Element;
    double Left;
    double Top;
    double Width;
    int MaxLength;
    const char* Tag;
    int TabIndex;
    const char* AccessibleName;
};
constexpr Box Boxes[] = {
    {70, FieldLeft, 2490, 4440, LongestText, "", 0, "Incassant"},
    {71, FieldLeft, 2895, 4440, LongestText, "", 1, "Adres"},
    {72, FieldLeft, 3300, 1320, LongestPostcode, "", 2, "Postcode"},
    {73, FieldLeft, 3705, 4440, LongestText, "", 3, "Woonplaats"},
    {74, FieldLeft, 4110, 4440, LongestAccount, "", 4, "IBAN"},
    {0, BackLeft, 600, 720, 4, "numeriek", 40, "Aantal af te drukken IBAN-acceptgiroformulieren"},
};

} // namespace

void frmMain::LayOut() {
    LayOutFrame();
    LayOutPages();
    LayOutFields();
    LayOutOptions();
    LayOutButtons();
}

void frmMain::LayOutFrame() {
    SetCaption("Ondor Drukkeuring 3.0");
    Resize(FormWidth, ClientHeight + forms::TitleBarHeight);

    // The rule below the heading belongs to it: the pages begin right under it.
    pictHeading.Move(0, 0, FormWidth, PanelTop - RuleHeight);
    pictHeading.SetBackColor(forms::colour::WindowBackground);
    pictLogo.Move(Margin, 60, 420, 420);
    pictLogo.SetPicture("wizard");
    lblHeading.Move(870, 120, FormWidth - 1170, 330);
    lblHeading.SetCaption("Drukkeuring IBAN-acceptgiroformulieren");
    lblHeading.SetFont({.Name = {}, .Size = 12, .Bold = true});
    lineHeading.SetEnds(0, PanelTop - RuleHeight, FormWidth, PanelTop - RuleHeight);
    lineHeading.SetForeColor(forms::colour::ButtonShadow);
    lineButtons.SetEnds(0, PanelTop + PanelHeight, FormWidth, PanelTop + PanelHeight);
    lineButtons.SetForeColor(forms::colour::ButtonShadow);
}

void frmMain::LayOutPages() {
    const auto addText = [this](const PageText& text, int page) {
        auto label =
            std::make_unique<forms::Label>(*this, "Label", forms::Control::NoIndex, &WizardPanel(page));
        label->SetCaption(text.Text);
        label->Move(text.Left, text.Top, text.Width, text.Height);
        label->SetFont({.Name = {}, .Size = 0, .Bold = text.Look == Style::Bold});
        if (text.Look == Style::Note) {
            label->SetForeColor(NoteColour);
        }
        if (text.Left == Indent) {
            label->SetBelow(optProcedure(0));
        }
        decoration_.push_back(std::move(label));
        return static_cast<forms::Label*>(decoration_.back().get());
    };

    static constexpr const char* pageNames[] = {"Incassant en instellingen", "Procedure",
                                                "Omvang van de testpartij", "Afdrukken"};
    for (const auto& [index, panel] : WizardPanel) {
        panel->Move(0, PanelTop, FormWidth, PanelHeight);
        panel->SetAccessibleName(pageNames[index]);
    }
    for (const PageText& text : PageTexts) {
        addText(text, text.Page);
    }
    for (int page = 0; page <= LastPageWithHint; ++page) {
        forms::Label* before = nullptr;
        for (const PageText& text : NextHint) {
            forms::Label* label = addText(text, page);
            if (before != nullptr) {
                label->SetBehind(*before);
            }
            before = label;
        }
    }
    for (const PagePicture& picture : PagePictures) {
        auto box = std::make_unique<forms::PictureBox>(*this, "Picture", forms::Control::NoIndex,
                                                       &WizardPanel(picture.Page));
        box->SetPicture(picture.Picture);
        box->Move(picture.Left, picture.Top, picture.Size, picture.Size);
        decoration_.push_back(std::move(box));
    }
}

void frmMain::LayOutFields() {
    lblOCRFont.Move(FieldLeft, 1575, FormWidth - FieldLeft - Margin, 240);
    lblOCR.Move(FieldLeft, 1800, FormWidth - FieldLeft - Margin, 360);
    lblContractsoort.Move(FieldLeft, 2145, FormWidth - FieldLeft - Margin, 240);
    // What stands in these three comes from the settings: "&" is a character there.
    for (forms::Label* label : {&lblOCRFont, &lblOCR, &lblContractsoort}) {
        label->SetUseMnemonic(false);
    }

    for (const Box& row : Boxes) {
        forms::TextBox& box = UserText(row.Element);
        box.Move(row.Left, row.Top, row.Width, FieldHeight);
        box.SetMaxLength(row.MaxLength);
        box.SetTag(row.Tag);
        box.SetTabIndex(row.TabIndex);
        box.SetAccessibleName(row.AccessibleName);
        box.SetBackColor(forms::colour::WindowBackground);
    }
    UpDown.Move(BackLeft + 720, 600, 255, FieldHeight);
}

void frmMain::LayOutOptions() {
    struct Option {
        forms::OptionButton& Button;
        const char* Caption;
        double Top;
        int TabIndex;
        bool Bold;
    };
    const Option options[] = {
        {optProcedure(0), "Algemene procedure", 570, 10, true},
        {optProcedure(1), "Verkorte procedure", 1830, 11, true},
        {optTestpartij(0), "Wij zijn een servicebureau.", 1215, 20, false},
        {optTestpartij(1),
         "Wij zijn geen servicebureau maar verspreiden wel meer dan 20.000 IBAN-acceptgiroformulieren per "
         "jaar.",
         1590, 21, false},
        {optTestpartij(2), "Wij verspreiden minder dan 20.000 IBAN-acceptgiroformulieren per jaar.", 1965, 22,
         false},
    };
    for (const Option& option : options) {
        option.Button.SetCaption(option.Caption);
        option.Button.Move(Margin, option.Top, TextWidth, 285);
        option.Button.SetTabIndex(option.TabIndex);
        option.Button.SetFont({.Name = {}, .Size = 0, .Bold = option.Bold});
    }
}

void frmMain::LayOutButtons() {
    struct Button {
        forms::CommandButton& Control;
        const char* Caption;
        double Left;
        double Top;
        int TabIndex;
    };
    // As they stand, after all that a page asks for. A button that is disabled passes the focus on to the
    // next.
    const Button buttons[] = {
        {Terug, "< &Terug", BackLeft, ButtonTop, 42},
        {Verder, "&Volgende >", NextLeft, ButtonTop, 43},
        {Cancel, "&Sluiten", 8460, ButtonTop, 50},
        {cmdPrinten, "Af&drukken", NextLeft, 570, 41},
    };
    for (const Button& button : buttons) {
        button.Control.SetCaption(button.Caption);
        button.Control.Move(button.Left, button.Top, 1440, ButtonHeight);
        button.Control.SetTabIndex(button.TabIndex);
    }
    Cancel.SetCancel(true);
    Verder.SetDefault(true);
}

} // namespace wizard
