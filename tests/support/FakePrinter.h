#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "machine/Printer.h"
#include "support/FakeCanvas.h"

namespace support {

/// A printer with measures of one's own choice, whose members can be made to fail by name.
class FakePrinter final : public machine::Printer {
  public:
    struct Failure {
        int number;
        std::string description;
    };

    FakePrinter() { Drawing.Font = {"Printer", 12, false}; }

    FakeCanvas canvas;
    double width = 11906;
    double height = 16838;
    double scaleLeft = 0;
    double scaleTop = 0;
    double scaleWidth = 11424;
    double scaleHeight = 16358.4;
    std::map<int, int> caps = {{machine::CapsLogPixelsX, 600},
                               {machine::CapsLogPixelsY, 600},
                               {machine::CapsPhysicalOffsetX, 100},
                               {machine::CapsPhysicalOffsetY, 100}};
    std::map<std::string, Failure> failures;
    std::vector<std::int16_t> papers;       ///< as they were set
    std::vector<std::int16_t> orientations; ///< as they were set

    void Assign(int) override {}
    std::string DeviceName() override { return Try("DeviceName"), "Laser"; }
    std::string Port() override { return "LPT1:"; }
    std::int16_t Orientation() override { return 1; }
    void SetOrientation(std::int16_t orientation) override {
        Try("Orientation");
        orientations.push_back(orientation);
    }
    std::int16_t PaperSize() override { return 9; }
    void SetPaperSize(std::int16_t paper) override {
        Try("PaperSize");
        papers.push_back(paper);
    }
    std::int16_t PaperBin() override { return 15; }
    void SetPaperBin(std::int16_t) override {}
    std::int16_t Copies() override { return 1; }
    double Width() override { return width; }
    double Height() override { return height; }
    double ScaleLeft() override { return Try("ScaleLeft"), scaleLeft; }
    double ScaleTop() override { return Try("ScaleTop"), scaleTop; }
    double ScaleWidth() override { return Try("ScaleWidth"), scaleWidth; }
    double ScaleHeight() override { return Try("ScaleHeight"), scaleHeight; }
    int GetDeviceCaps(int item) override { return Try("GetDeviceCaps"), caps[item]; }
    void SetDocumentTitle(const std::string&) override {}
    void Abandon() override {}
    machine::Canvas& Page() override { return Try("Page"), canvas; }

  private:
    void Try(const char* member) {
        if (const auto failure = failures.find(member); failure != failures.end()) {
            throw base::RuntimeError(failure->second.number, failure->second.description);
        }
    }
};

/// Any number of printers, all alike.
class FakePrinters final : public machine::Printers {
  public:
    int count = 1;
    int failure = 0; ///< number of the error that Count raises, if not 0

    int Count() override {
        if (failure != 0) {
            throw base::RuntimeError(failure, "No spooler");
        }
        return count;
    }
    machine::PrinterEntry Item(int) override { return {"Laser", "LPT1:"}; }
    machine::PrinterCondition Condition(int) override { return {.Name = "Laser"}; }
    std::optional<machine::SheetArea> SheetOf(int, std::int16_t, std::int16_t) override { return {}; }
};

} // namespace support
