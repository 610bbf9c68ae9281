#pragma once

#include <string>

#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "printmanager/frmPrintManager.h"
#include "support/CountingPrinter.h"
#include "wizard/frmMain.h"

namespace support {

/// The whole program on the memory platform, with printers that keep nothing, for loads that no user would
/// wait for. Its wizard stands on the page that prints.
class LoadedProgram {
  public:
    explicit LoadedProgram(int printers = 1, const std::string& creditor = "Stichting Voorbeeld") {
        Memory.registry.CreateKey(SettingsPath);
        Set("AcceptgiroType", "1");
        Set("GMUContractVorm", "32");
        Set("GMUVerkeer", "1");
        Set("IncassantAfdrukken", "1");
        Set("IncassantAdres", "Dorpsstraat 12");
        Set("IncassantPostCode", "1234AB");
        Set("IncassantWoonplaats", "Proefdorp");
        Set("IncassantBankGiro", "NL13ABNA0500000018");
        for (int i = 1; i <= printers; ++i) {
            memory::PrintQueue queue;
            queue.Name = "Printer " + std::to_string(i);
            Memory.InstallPrinter(queue);
        }
        Form.Show();
        Form.Verder.UserClick();
        Form.optProcedure(0).UserClick();
        Form.Verder.UserClick();
        Form.optTestpartij(0).UserClick();
        Form.Verder.UserClick();
        State.IncassantBegunstigde = creditor; // may be longer than its box
    }
    LoadedProgram(const LoadedProgram&) = delete;
    LoadedProgram& operator=(const LoadedProgram&) = delete;

    /// Opens the print manager, which stays until the user closes it or a document is printed.
    void OpenManager() {
        Memory.desktop.OnModal = [](forms::Form&) { return false; };
        Form.cmdPrinten.UserClick();
    }

    /// Opens the print manager and prints the first document.
    void Print(int forms, int copies = 1) {
        Memory.desktop.OnModal = [copies](forms::Form& form) {
            auto& manager = dynamic_cast<printmanager::frmPrintManager&>(form);
            manager.lstAfdrukken.UserPick(0);
            manager.UserText(0).SetText(std::to_string(copies));
            manager.cmdPrint.UserClick();
            return true;
        };
        Form.UserText(0).SetMaxLength(0); // the box takes four digits, the print command up to 30,000 forms
        Form.UserText(0).SetText(std::to_string(forms));
        Form.cmdPrinten.UserClick();
    }

    /// Opens the print manager with its details, and chooses each printer in turn.
    void ChooseEachPrinter() {
        Memory.desktop.OnModal = [](forms::Form& form) {
            auto& manager = dynamic_cast<printmanager::frmPrintManager&>(form);
            auto& printers = manager.cboPrinterSelect(0);
            manager.cmdDetails.UserClick();
            for (int i = 0; i < printers.ListCount(); ++i) {
                printers.UserPick(i);
            }
            return false;
        };
        Form.cmdPrinten.UserClick();
    }

    memory::MemoryPlatform Memory;
    CountingPrinter Printer{Memory.printers};
    state::AppState State;

  private:
    static constexpr const char* SettingsPath = "Software\\Ondor\\Tarvik\\CurrentVersion";

    void Set(const char* name, const std::string& text) { Memory.registry.SetText(SettingsPath, name, text); }

    machine::Platform services_{Memory.desktop, Memory.registry,          Memory.locale,   Memory.clock,
                                Memory.random,  Memory.spooler,           Memory.printers, Printer,
                                Memory.bitmaps, Memory.desktop.Windows(), Memory.fonts};
    forms::Session session_{Memory.desktop};

  public:
    wizard::frmMain Form{session_, services_, State};
};

} // namespace support
