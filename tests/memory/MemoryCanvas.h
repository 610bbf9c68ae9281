#pragma once

#include <string>

#include "machine/Canvas.h"
#include "memory/MemoryFonts.h"
#include "memory/Recorder.h"

namespace memory {

/// A surface that records what is drawn on it. Every font that no test describes has the same measures, so
/// positions can be worked out by hand: a character is 10 twips wide for each point of size (11 if bold), a
/// line 24 twips high.
class MemoryCanvas final : public machine::Canvas {
  public:
    /// `surface` names it in the events: "printer" or "preview".
    MemoryCanvas(Recorder& recorder, MemoryFonts& fonts, std::string surface)
        : recorder_(recorder), fonts_(fonts), surface_(std::move(surface)) {}

    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override;
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override;
    void NewPage() override;
    void EndDocument() override;

    /// Gives up a document that was not ended. No event.
    void Abandon() { page_ = 1; }

    /// Number of the page that is drawn on, from 1.
    int PageNumber() const { return page_; }

  private:
    Recorder& recorder_;
    MemoryFonts& fonts_;
    std::string surface_;
    int page_ = 1;
};

} // namespace memory
