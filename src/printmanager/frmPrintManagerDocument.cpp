// Stored printer settings for one kind of document.

#include <string>
#include <string_view>

#include "base/Text.h"
#include "machine/modRegistry.h"
#include "printmanager/frmPrintManager.h"
#include "state/Settings.h"

namespace printmanager {

namespace {

/// How the title of a kind of document begins, and the key of its settings. A later row overrides an earlier
/// one. The large family card shares its settings with the person's card.
struct DocumentKind {
    std::string_view TitleStart;
    const char* Key;
};

constexpr DocumentKind Kinds[] = {
    {"etiket", "\\Etiketten"},
    {"accept", "\\Acceptgiro"},
    {"persoons", "\\Persoonskaart"},
    {"kleine gezinskaart", "\\Gezinskaart"},
    {"grote gezinskaart", "\\Persoonskaart"},
};
constexpr const char* OtherDocuments = "\\Overige";
constexpr const char* SettingsOfDocuments = "\\PrinterSetting";

std::string KeyOf(std::string_view title) {
    const char* key = OtherDocuments;
    for (const DocumentKind& kind : Kinds) {
        if (title.starts_with(kind.TitleStart)) {
            key = kind.Key;
        }
    }
    return key;
}

/// Selects the first entry of this text, blanks at its ends aside. False if there is none.
bool SelectText(forms::ComboBox& combo, const std::string& text) {
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (base::text::Trim(combo.List(i)) == base::text::Trim(text)) {
            combo.SetListIndex(i);
            return true;
        }
    }
    return false;
}

} // namespace

void frmPrintManager::ApplyDocumentSettings(const std::string& title) {
    Desktop().HourglassOn();
    pictDetails.SetEnabled(false);

    const std::string path = state_.SettingsKey + SettingsOfDocuments + KeyOf(title);
    const machine::modRegistry registry(platform_.Registry);
    const auto read = [&](const char* name) {
        return registry.GetRegistryValue(machine::HkeyCurrentUser, path, name);
    };
    const std::string printer = read("Printer");
    const std::string orientation = read("Orientatie");
    const std::string paper = read("Formaat");
    const std::string bin = read("Lade");
    const std::string matrix = read("Matrix");
    if (printer.empty()) {
        pictDetails.SetEnabled(true);
        Desktop().HourglassOff();
        return;
    }
    if (orientation.empty() || paper.empty() || bin.empty() || matrix.empty()) {
        return;
    }

    blnUserChanged = true;
    RefreshPrinterDetails();
    if (!SelectText(cboPrinterSelect(0), printer)) {
        return;
    }
    SelectText(cboPrinterSelect(3), orientation);
    if (cboPrinterSelect(3).ListIndex() == -1) {
        cboPrinterSelect(3).SetListIndex(0);
    }
    SelectText(cboPrinterSelect(1), paper);
    SelectText(cboPrinterSelect(2), bin);
    chkMatrixPrinter.SetValue(state::IsAan(matrix));
    pictDetails.SetEnabled(true);
    Desktop().HourglassOff();
}

} // namespace printmanager
