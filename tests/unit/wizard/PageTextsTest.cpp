#include <gmock/gmock.h>

#include "WizardFixture.h"

namespace wizard {
namespace {

/// What stands on a page, apart from what comes from the settings.
struct PageTexts {
    int Page;
    std::vector<std::string> Texts;
};

const std::vector<PageTexts>& AllPages() {
    static const std::vector<PageTexts> pages{
        {0,
         {"Met dit programma kunt u IBAN-acceptgiroformulieren gaan afdrukken welke bestemd zijn voor de "
          "drukkeuring.",
          "Voor de test zijn IBAN-Acceptgiroformulieren nodig.",
          "Voor de productie van de testpartij wordt gebruik gemaakt van de instellingen zoals deze binnen "
          "Tarvik "
          "zijn ingesteld. ",
          "Instellingen vanuit Tarvik ( u dient een correct OCR-B font te gebruiken ):", "OCR-B fontnaam:",
          "Ingestelde contractsoort:", "Incassant:", "Adres:", "Postcode:", "Woonplaats:", "IBAN:",
          "Controleer uw IBAN nummer voordat u verder gaat.",
          "Let op:", "Bedragen en IBAN-banknummers worden automatisch gegenereerd.",
          "De gebruikte persoonsgegevens zijn automatisch gegenereerd. ", "Klik op ", "&Volgende >",
          "om verder te gaan"}},
        {1,
         {"Selecteer de te volgen procedure voor de aanmaak van de testpartij:", "Algemene procedure",
          "Een testpartij aanmaken en deze ter goedkeuring aanbieden aan een door Acceptgiro B.V. aangewezen "
          "testinstituut.",
          "Met deze test wordt nagegaan u IBAN-Acceptgiro’s kan aanmaken, die zonder problemen door de "
          "bancaire "
          "instellingen kunnen worden verwerkt.",
          "Verkorte procedure",
          "Indien u al over een B-of C-Acceptgirocontract beschikt, maar met een ander rekeningnummer "
          "Acceptgiro’s "
          "wil verspreiden, kan een verkorte procedure worden gevolgd. ",
          "De verkorte procedure wijkt op de volgende punten af van de algemene procedure:",
          "In plaats van een testpartij kan worden volstaan met vijf nieuwe en volgens de richtlijnen "
          "geprinte "
          "IBAN-Acceptgiroformulieren.",
          "U vermeldt op het formulier ‘Aanvraag drukkeuring’ naast het nieuwe rekeningnummer (IBAN) ook het "
          "rekeningnummer (IBAN) waarop u al een bestaand contract heeft.",
          "Let op:", "Dit contract moet reeds verkregen zijn met Tarvik en met dezelfde printer.", "Klik op ",
          "&Volgende >", "om verder te gaan"}},
        {2,
         {"De omvang van de testpartij welke u moet aanleveren hangt af van het soort acceptgirocontract en "
          "de "
          "hoeveelheid te verspreiden IBAN-acceptgiroformulieren.",
          "Selecteer de optie welke het beste bij u past:", "Wij zijn een servicebureau.",
          "Wij zijn geen servicebureau maar verspreiden wel meer dan 20.000 IBAN-acceptgiroformulieren per "
          "jaar.",
          "Wij verspreiden minder dan 20.000 IBAN-acceptgiroformulieren per jaar.", "Klik op ", "&Volgende >",
          "om verder te gaan"}},
        {3,
         {"Indien u zelf het aantal af te drukken IBAN-acceptgiroformulieren nog wilt wijzigen dan kunt u "
          "dat hier "
          "doen.",
          "Aantal af te drukken IBAN-acceptgiroformulieren:", "Af&drukken",
          "Klik op 'Afdrukken' om de IBAN-acceptgiroformulieren (testdocumenten) af te drukken...", "Let op:",
          "Controleer dat het acceptgiropapier recht en vast in de printerlade ligt en gebruik ALTIJD het "
          "testsjabloon om de acceptgiro's te controleren voordat u de drukkeuring opstuurt.",
          "Bij een foutieve drukkeuring zal u een afkeuring ontvangen. Deze afkeuring zal gebaseerd zijn op "
          "de door "
          "u gebruikte hardware i.c. printer danwel de door u gedane instellingen/calibratie.",
          "Ondor BV kan geen aansprakelijkheid aanvaarden voor de door u gebruikte hardware en instellingen.",
          "Schema aantal af te drukken acceptgiro's:", "Servicebureau's:", "250 testdocumenten",
          "Verspreiding van meer dan 20.000 acceptgiro's:", "250 testdocumenten",
          "Verspreiding van minder dan 20.000 acceptgiro's:", "100 testdocumenten",
          "Het formulier 'Aanvraag drukkeuring' moet u volledig invullen en samen met de testpartij opsturen "
          "ter "
          "beoordeling van de testinstantie"}},
    };
    return pages;
}

class PageTextsTest : public WizardTest, public testing::WithParamInterface<PageTexts> {
  protected:
    static std::string CaptionOf(const forms::Control& control) {
        const auto* captioned = dynamic_cast<const forms::CaptionedControl*>(&control);
        return captioned == nullptr ? std::string() : captioned->Caption();
    }

    bool IsFromSettings(const forms::Control& control) const {
        return &control == &form->lblOCR || &control == &form->lblOCRFont ||
               &control == &form->lblContractsoort;
    }
};

TEST_P(PageTextsTest, StandToTheLetter) {
    Start();
    const forms::Control* panel = &form->WizardPanel(GetParam().Page);
    std::vector<std::string> texts;
    for (const forms::Control* control : form->Controls()) {
        const std::string caption = CaptionOf(*control);
        if (control->Container() == panel && !caption.empty() && !IsFromSettings(*control)) {
            texts.push_back(caption);
        }
    }
    EXPECT_THAT(texts, testing::UnorderedElementsAreArray(GetParam().Texts));
}

INSTANTIATE_TEST_SUITE_P(Pages, PageTextsTest, testing::ValuesIn(AllPages()),
                         [](const auto& page) { return "Page" + std::to_string(page.param.Page); });

using HeadingTest = WizardTest;

TEST_F(HeadingTest, AndButtonsHaveTheirTexts) {
    Start();
    EXPECT_EQ(form->lblHeading.Caption(), "Drukkeuring IBAN-acceptgiroformulieren");
    EXPECT_EQ(form->Terug.Caption(), "< &Terug");
    EXPECT_EQ(form->Verder.Caption(), "&Volgende >");
    EXPECT_EQ(form->Cancel.Caption(), "&Sluiten");
}

} // namespace
} // namespace wizard
