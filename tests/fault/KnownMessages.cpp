#include "fault/KnownMessages.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace fault {

namespace {

using forms::MessageIcon;

constexpr const char* MessageTitle = "Drukkeuring acceptgiro's";

struct KnownMessage {
    MessageIcon Icon;
    /// The whole text, or how it begins if it ends in a number or a description.
    std::string_view Text;
    bool Open = false;
};

constexpr KnownMessage Messages[] = {
    // The wizard.
    {MessageIcon::Information, "Het ingegeven banknummer is niet correct."},
    {MessageIcon::Information, "U heeft nog geen keuze gemaakt omtrent de te volgen procedure."},
    {MessageIcon::Information, "U heeft nog geen keuze gemaakt omtrent de omvang van de testpartij."},
    {MessageIcon::Information, "Er valt niets af te drukken, geef eerst het aantal acceptgiro's in."},
    {MessageIcon::Information, "U kunt maximaal 30.000 acceptgiro's afdrukken."},
    {MessageIcon::Exclamation, "Het bestand kon niet worden geschreven.\r\n", true},
    // The opening of a printer.
    {MessageIcon::Exclamation,
     "Fout tijdens de initialisatie van de printer.\r\nWaarschijnlijk kan de gekozen printer niet in de "
     "gekozen "
     "modus afdrukken.\r\nRegel: ",
     true},
    {MessageIcon::Exclamation,
     "De printer kon niet worden gevonden of de initialisatie van de printer is op dit moment niet "
     "mogelijk.\r\nRegel: ",
     true},
    {MessageIcon::Critical,
     "Fout tijdens de initialisatie van de printer.\r\nMocht u deze fout niet zelf kunnen oplossen en u kunt "
     "deze fout reproduceren neem dan contact op met Ondor BV.\r\n\r\nFoutnummer: ",
     true},
    // The print manager.
    {MessageIcon::Exclamation, "U kunt geen 0 afdrukken maken."},
    {MessageIcon::Critical,
     "Een onbekende fout is opgetreden !\r\nMocht u deze fout kunnen reproduceren neem dan contact op met "
     "Ondor "
     "BV.\r\n\r\nSluit dit onderdeel af en herstart het weer.\r\n\r\nError: ",
     true},
    {MessageIcon::Information, "Er is nog geen initialisatiewaarde ingegeven."},
    {MessageIcon::Information, "De initialisatiewaarde is ingesteld."},
    // The preview.
    {MessageIcon::Information,
     "Er zijn meer dan 40 pagina's gevonden, in het afdrukvoorbeeld worden maximaal 40 pagina's getoond."},
};

} // namespace

bool IsKnown(const memory::ShownMessage& message) {
    const std::string_view text = message.Text;
    return message.Title == MessageTitle &&
           std::any_of(std::begin(Messages), std::end(Messages), [&](const KnownMessage& known) {
               return message.Icon == known.Icon &&
                      (known.Open ? text.starts_with(known.Text) : text == known.Text);
           });
}

} // namespace fault
