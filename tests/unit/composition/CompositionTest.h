#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "memory/MemoryPlatform.h"
#include "state/AppState.h"
#include "support/FakePrinter.h"
#include "support/FakeRunHost.h"
#include "testdata/Tables.h"

namespace composition {

using Numbers = std::vector<std::int16_t>;

inline constexpr const char* OcrFont = "OCR-B";

/// The program's state as the start leaves it, with a printer that is the surface.
class CompositionTest : public testing::Test {
  protected:
    CompositionTest() {
        memory.clock.Set({2026, 3, 14, 10, 30, 0, 0});
        memory.random.Seed(1);
        memory.registry.CreateKey(SettingsPath);
        state.SettingsKey = SettingsPath;
        state.MessageTitle = "Drukkeuring acceptgiro's";
        state.ListFontName = "Tahoma";
        state.TwipsPerCm = 567;
        state.LeftMargin = 450;
        state.GMUVerkeer = true;
        state.GMUFontName = OcrFont;
        state.GMUFontSize = "12";
        state.GMUContractVorm = 31;
        state.AcceptgiroType = 1;
        state.IncassantAfdrukken = true;
        state.IncassantBegunstigde = "Stichting Proef";
        state.IncassantAdres = "Voorbeeldstraat 1";
        state.IncassantPostCode = "1234AB";
        state.IncassantWoonplaats = "TESTDAM";
        state.IncassantBankGiro = "NL13ABNA0500000018";
        state.PersonTable = &testdata::PersonTable();
        state.AccountTable = &testdata::AccountTable();
        state.PageWidth = 11424;
        state.PageHeight = 16358;
        state.LineHeight = 192;
        state.SurfaceWidth = 11424;
        state.Surface = &host.printer;
        printer.Drawing.Font.Size = 8;
    }

    static constexpr const char* SettingsPath = "Software\\Ondor\\Tarvik\\CurrentVersion";

    std::vector<support::DrawnText>& Texts() { return printer.canvas.texts; }

    /// The texts as they were drawn, in order.
    std::vector<std::string> Words() {
        std::vector<std::string> words;
        for (const support::DrawnText& drawn : Texts()) {
            words.push_back(drawn.text);
        }
        return words;
    }

    /// The nth drawing of a text, from 1; a failure and an empty record if it was not drawn as often.
    support::DrawnText Drawn(const std::string& text, int nth = 1) {
        for (const support::DrawnText& drawn : Texts()) {
            if (drawn.text == text && --nth == 0) {
                return drawn;
            }
        }
        ADD_FAILURE() << "not drawn: \"" << text << "\"";
        return {};
    }

    bool IsDrawn(const std::string& text) {
        return std::any_of(Texts().begin(), Texts().end(),
                           [&](const support::DrawnText& drawn) { return drawn.text == text; });
    }

    memory::MemoryPlatform memory;
    support::FakePrinter printer;
    support::FakePrinters printers;
    machine::Platform services{memory.Services().Desktop,
                               memory.Services().Registry,
                               memory.Services().Locale,
                               memory.Services().Clock,
                               memory.Services().Random,
                               memory.Services().Spooler,
                               printers,
                               printer,
                               memory.Services().Bitmaps,
                               memory.Services().WindowProcedures,
                               memory.Services().Fonts};
    state::AppState state;
    support::FakeRunHost host{state, services};
};

} // namespace composition
