#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "memory/MemoryPlatform.h"
#include "precheck/Lengths.h"
#include "precheck/Precheck.h"
#include "state/AppState.h"
#include "state/CalibrationBlocks.h"
#include "support/StoredSettings.h"
#include "testdata/Tables.h"

namespace precheck {

/// How a failing test tells it.
inline void PrintTo(const Finding& finding, std::ostream* stream) {
    *stream << finding.Code << ": " << finding.Wrong << " | " << finding.Mend;
}

using Numbers = std::vector<std::int16_t>;

/// A batch with nothing wrong: blank stationery for three forms, all fields printed, a true OCR-B of 10
/// points.
class PrecheckTest : public testing::Test {
  protected:
    PrecheckTest() : PrecheckTest(nullptr) {}

    /// With the fonts of a desktop instead of those in memory.
    explicit PrecheckTest(machine::Fonts* fonts)
        : services{memory.desktop,
                   memory.registry,
                   memory.locale,
                   memory.clock,
                   memory.random,
                   memory.spooler,
                   memory.printers,
                   memory.printer,
                   memory.bitmaps,
                   memory.Services().WindowProcedures,
                   fonts != nullptr ? *fonts : memory.fonts} {
        memory.clock.Set({2026, 3, 14, 10, 30, 0, 0});
        memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4});
        state.SettingsKey = SettingsPath;
        memory.registry.CreateKey(SettingsPath);
        state.TwipsPerCm = 567;
        state.ListFontName = "Tahoma";
        state.GMUVerkeer = true;
        state.GMUFontName = OcrFont;
        state.GMUFontSize = "10";
        state.GMUServiceNr = "104628";
        state.GMUContractVorm = 32;
        state.AcceptgiroType = 1;
        state.IncassantAfdrukken = true;
        state.IncassantBegunstigde = "Stichting Proef";
        state.IncassantAdres = "Voorbeeldstraat 1";
        state.IncassantPostCode = "1234 AB";
        state.IncassantWoonplaats = "Testdam";
        state.IncassantBankGiro = "NL13ABNA0500000018";
        state.PersonTable = &testdata::PersonTable();
        state.AccountTable = &testdata::AccountTable();
        for (const auto& block : state::CalibrationBlocks(state)) {
            std::fill(block.X.begin(), block.X.end(), "0,20");
            std::fill(block.Y.begin(), block.Y.end(), "-0,15");
        }
        Set("GMUFontName", OcrFont);
        Set("GMUVerkeer", "1");
        Set("IncassantAfdrukken", "1");
        printer.Condition.Name = "Laser";
        printer.Condition.DotsPerInch = 600;
        printer.Sheet = Sheet(210, 304.8);
    }

    static constexpr const char* SettingsPath = "Software\\Ondor\\Tarvik\\CurrentVersion";
    static constexpr const char* OcrFont = "OCR-B";

    /// A sheet of this size in millimetres, printable to 4,2 mm from its edges.
    static machine::SheetArea Sheet(double width, double height, double margin = 4.2) {
        return {.Width = ToTwips(width),
                .Height = ToTwips(height),
                .Left = ToTwips(margin),
                .Top = ToTwips(margin),
                .Right = ToTwips(width - margin),
                .Bottom = ToTwips(height - margin)};
    }

    void Set(const std::string& name, const std::string& text) {
        memory.registry.SetText(SettingsPath, name, text);
    }

    Findings All() {
        Store();
        return CheckAll(state, services, intent, printer);
    }
    Findings Settings() {
        Store();
        return CheckSettings(state, services, intent);
    }
    Findings OfPrinter() {
        Store();
        return CheckPrinter(state, services, intent, printer);
    }
    Findings Document() {
        Store();
        return CheckDocument(state, services, intent, printer.Sheet);
    }

    static std::vector<std::string> Codes(const Findings& findings) {
        std::vector<std::string> codes;
        for (const Finding& finding : findings) {
            codes.push_back(finding.Code);
        }
        return codes;
    }
    static std::vector<Finding> With(const Findings& findings, const std::string& code) {
        std::vector<Finding> with;
        std::copy_if(findings.begin(), findings.end(), std::back_inserter(with),
                     [&](const Finding& finding) { return finding.Code == code; });
        return with;
    }
    /// The first of a code; a failure and an empty finding if there is none.
    static Finding First(const Findings& findings, const std::string& code) {
        const std::vector<Finding> with = With(findings, code);
        if (with.empty()) {
            ADD_FAILURE() << "not found: " << code << ", but " << testing::PrintToString(Codes(findings));
            return {};
        }
        return with.front();
    }

    memory::MemoryPlatform memory;
    machine::Platform services;
    state::AppState state;
    Intent intent{.Forms = 30, .FormsAskedFor = 30};
    ChosenPrinter printer;

  private:
    /// What a run reads anew stands in the store as the test has set it in `state`, unless there is none.
    void Store() {
        if (memory.registry.HasKey(SettingsPath)) {
            support::StoreRunSettings(memory.registry, state);
        }
    }
};

} // namespace precheck
