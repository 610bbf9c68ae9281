#include "forms/Handbook.h"

#include "forms/Desktop.h"

namespace forms {

std::string HandbookPage(const std::string& section) {
    return section.empty() ? HandbookFile : "sections/" + section + ".html";
}

void TellHandbookNotOpened(Desktop& desktop, const std::string& file, const std::string& title) {
    desktop.MsgBox("De handleiding kan niet worden geopend.\n\n"
                   "Open dit bestand zelf in een webbrowser. Is het er niet, installeer het programma dan "
                   "opnieuw.\n\n" +
                       file,
                   MessageIcon::Exclamation, title);
}

} // namespace forms
