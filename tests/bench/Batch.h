#pragma once

#include <string>

#include "composition/DocumentRun.h"
#include "composition/PrinterMeasures.h"
#include "machine/Printer.h"
#include "machine/SeededRandom.h"
#include "memory/MemoryPlatform.h"
#include "state/AppState.h"
#include "support/FakeRunHost.h"
#include "support/StoredSettings.h"
#include "testdata/Tables.h"

namespace bench {

/// A batch of test forms with a narrow stub and everything on it that a contract can ask for, on any printer.
class Batch {
  public:
    Batch(machine::Printers& printers, machine::Printer& printer)
        : services_{memory_.desktop, memory_.registry,          memory_.locale, memory_.clock,
                    chance_,         memory_.spooler,           printers,       printer,
                    memory_.bitmaps, memory_.desktop.Windows(), memory_.fonts} {
        state_.SettingsKey = "Software\\Ondor\\Tarvik\\CurrentVersion";
        memory_.registry.CreateKey(state_.SettingsKey);
        state_.TwipsPerCm = 567;
        state_.PersonTable = &testdata::PersonTable();
        state_.AccountTable = &testdata::AccountTable();
        state_.AcceptgiroType = 1;
        state_.GMUContractVorm = 32;
        state_.GMUVerkeer = true;
        state_.GMUFontName = "OCR-B";
        state_.GMUFontSize = "10";
        state_.GMUServiceNr = "4711";
        state_.IncassantAfdrukken = true;
        state_.IncassantBegunstigde = "Stichting Voorbeeld";
        state_.IncassantAdres = "Dorpsstraat 12";
        state_.IncassantPostCode = "1234AB";
        state_.IncassantWoonplaats = "Proefdorp";
        state_.IncassantBankGiro = "NL13ABNA0500000018";
        support::StoreRunSettings(memory_.registry, state_);
        composition::LeesPrinterMaten(state_, services_);
    }

    /// The host keeps a note of the progress, so a new one serves each run.
    void Print(int forms) {
        support::FakeRunHost host(state_, services_);
        host.count = std::to_string(forms);
        composition::ComposeDocument(state_, services_, host.printer, host,
                                     {.iMethod = composition::DocumentTestForms});
    }

    machine::Platform& Services() { return services_; }
    const state::AppState& State() const { return state_; }

  private:
    memory::MemoryPlatform memory_;
    machine::SeededRandom chance_{1};
    machine::Platform services_;
    state::AppState state_;
};

} // namespace bench
