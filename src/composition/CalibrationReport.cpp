#include "composition/CalibrationReport.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "base/Numbers.h"
#include "base/Text.h"
#include "composition/ListSteps.h"
#include "composition/SurfaceRules.h"
#include "state/AppState.h"
#include "state/CalibrationBlocks.h"
#include "state/ContractTexts.h"

namespace composition {

namespace text = base::text;

namespace {

constexpr double RightColumnTwips = 5000; ///< from the left margin
constexpr double LabelIndentTwips = 150;
constexpr double ValueIndentTwips = 1500;
constexpr double LinesBelowTitle = 1.5;
constexpr double LinesBelowValues = 0.2;

constexpr std::array<std::string_view, 4> Places = {"Acceptgiro 1", "Acceptgiro 2", "Acceptgiro 3",
                                                    "Acceptgiro onder brief"};

/// Blocks in the left column; the others stand to the right of them.
constexpr std::size_t LeftSections = 4;

using Section = state::CalibrationValues<const std::string>;

class Report {
  public:
    Report(const state::AppState& state, machine::Locale& locale)
        : state_(state), locale_(locale), steps_(state) {}

    void Print() {
        const double left = state_.LeftMargin;
        const auto blocks = state::CalibrationBlocks(state_);
        const std::span<const Section> sections = blocks;

        steps_.RegelVerder();
        steps_.Field({"de titel van het document"});
        steps_.Print(left, "Instellingen calibratie acceptgiro in millimeters");
        steps_.RegelVerder();
        steps_.TrekLijn();
        steps_.RegelVerder();
        double columnTop = 0;
        steps_.OnSurface([&](PrintSurface& surface) { columnTop = surface.CurrentY(); });
        PrintColumn(sections.first(LeftSections), left);
        PrintNotes(left);
        PrintFontSample(left);
        steps_.OnSurface([&](PrintSurface& surface) { surface.SetCurrentY(columnTop); });
        PrintColumn(sections.subspan(LeftSections), left + RightColumnTwips);
    }

  private:
    void PrintColumn(std::span<const Section> sections, double x) {
        for (const Section& section : sections) {
            if (&section != &sections.front()) {
                steps_.RegelVerder();
            }
            PrintSection(section, x);
        }
    }

    void PrintSection(const Section& section, double x) {
        steps_.Field({section.Title, section.Block});
        steps_.OnSurface([](PrintSurface& surface) { surface.SetFontBold(true); });
        steps_.Print(x, section.Title);
        steps_.OnSurface([](PrintSurface& surface) { surface.SetFontBold(false); });
        steps_.RegelVerder(LinesBelowTitle);
        // The first X value alone tells whether this part was ever calibrated.
        if (section.X.front().empty()) {
            steps_.PrintLine(x, "Geen calibratie ingegeven !");
            return;
        }
        // This block's values alone are also told in twips.
        const bool withCorrection = section.Block == state::CalibratedBlock::CreditorOnAccept;
        for (std::size_t i = 0; i < Places.size(); ++i) {
            steps_.PrintLine(x, Places[i]);
            PrintValue("X-waarde :", section.X[i], withCorrection, x);
            PrintValue("Y-waarde :", section.Y[i], withCorrection, x);
            steps_.RegelVerder(LinesBelowValues);
        }
    }

    void PrintValue(std::string_view label, std::string_view value, bool withCorrection, double x) {
        value = text::Trim(value);
        steps_.Print(x + LabelIndentTwips, label);
        if (!withCorrection) {
            steps_.PrintLine(x + ValueIndentTwips, value);
            return;
        }
        std::string line(value);
        line.append("  - Correctie naar printer: ");
        line.append(std::to_string(Kalibreer(state_, locale_, 0, value)));
        steps_.PrintLine(x + ValueIndentTwips, line);
    }

    void PrintNotes(double left) {
        TwoLines();
        steps_.Field({"de toelichting bij de calibratie"});
        steps_.Print(left,
                     "NB: De calibratie X (naar links/rechts) en de Y (naar boven/beneden) waarde worden "
                     "bepaald vanaf de basispositie op de acceptgiro.");
        steps_.RegelVerder();
        steps_.Print(left,
                     "Bij een X van 1,00 en een Y van -1,00 wordt vanaf de basispositie 1 mm. naar rechts "
                     "en 1 mm. naar boven afgedrukt.");
        TwoLines();
        steps_.Field({"de regel met de contractvorm"});
        steps_.Print(left, "Contractvorm: ");
        steps_.Print(state::ContractReportText(state_.GMUContractVorm));
        steps_.RegelVerder();
        steps_.Field({"de regel met het acceptgirotype"});
        steps_.Print(left, "Acceptgiro type: ");
        const std::string_view type = state::AcceptgiroTypeText(state_.AcceptgiroType);
        if (!type.empty()) {
            steps_.PrintLine(type);
        }
        TwoLines();
    }

    void PrintFontSample(double left) {
        std::string font;
        double size = 0;
        steps_.Field({"het voorbeeld van het OCR-B-schrift"});
        steps_.Print(left, "OCR-B schrift :     ");
        steps_.OnSurface([&](PrintSurface& surface) {
            font = surface.Font();
            size = surface.FontSize();
            surface.SetFont(state_.GMUFontName);
            surface.SetFontSize(base::NumericValue(state_.GMUFontSize));
        });
        steps_.PrintLine("1234567890+><ABCDEFGHIJKLMNOPQRSTUVWXYZ");
        steps_.OnSurface([&](PrintSurface& surface) {
            surface.SetFont(font);
            surface.SetFontSize(size);
        });
        TwoLines();
        steps_.PrintLine(left, "Bovenstaand is het door u gekozen OCR-B schrift");
    }

    void TwoLines() {
        steps_.RegelVerder();
        steps_.RegelVerder();
    }

    const state::AppState& state_;
    machine::Locale& locale_;
    ListSteps steps_;
};

} // namespace

void PrintCalibrationReport(const state::AppState& state, machine::Locale& locale) {
    Report(state, locale).Print();
}

} // namespace composition
