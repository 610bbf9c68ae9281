#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "machine/Canvas.h"

namespace support {

/// A text as it was drawn: page from 1, place in twips, font in points.
struct DrawnText {
    int page = 1;
    double x = 0;
    double y = 0;
    std::string text;
    std::string font;
    double size = 0;
    bool bold = false;
};

struct DrawnLine {
    int page = 1;
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
    std::int32_t colour = 0;
};

/// Keeps what is drawn on it. Every font has the same measures: a character is 10 twips wide for each point
/// of size (11 if bold), a line 24 twips high. Each call can be made to fail by its number.
class FakeCanvas final : public machine::Canvas {
  public:
    std::vector<DrawnText> texts;
    std::vector<DrawnLine> lines;
    int pages = 1;
    int documents = 0; ///< ended
    int calls = 0;
    int measured = 0;
    /// Asked at each call with its number, from 1 on.
    std::function<bool(int call)> Fails;

    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        Count();
        ++measured;
        const double charWidth = font.Bold ? 11 : 10;
        return {static_cast<double>(base::text::Length(text)) * charWidth * font.Size, 24 * font.Size};
    }
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override {
        Count();
        texts.push_back({pages, x, y, std::string(text), font.Name, font.Size, font.Bold});
    }
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override {
        Count();
        lines.push_back({pages, x1, y1, x2, y2, colour});
    }
    void NewPage() override {
        Count();
        ++pages;
    }
    void EndDocument() override {
        Count();
        ++documents;
    }

  private:
    void Count() {
        ++calls;
        if (Fails && Fails(calls)) {
            throw base::RuntimeError(base::ErrorPrinter, "Printer error");
        }
    }
};

} // namespace support
