#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "composition/FormField.h"
#include "composition/PrintSurface.h"
#include "machine/Canvas.h"
#include "precheck/Finding.h"
#include "precheck/LetterMeasures.h"

namespace precheck {

/// A text that leaves ink on a sheet.
struct InkedText {
    int Page = 1;
    std::int16_t Place = 0; ///< of its form; 0 in a list
    std::size_t Field = 0;  ///< number in DrawnDocument::Fields
    SheetPlace Ink;
};

/// A text of which only the beginning is drawn.
struct CutText {
    std::size_t Field = 0;
    std::string Whole;
    std::string Left;
};

/// Letters that are drawn in another font's picture.
struct MissingLetters {
    std::size_t Field = 0;
    std::string Font;
    std::u32string Letters;
};

/// What stands where when a document has been drawn. Cut and missing are noted once for each field.
class DrawnDocument final : private machine::Canvas {
  public:
    /// `sheet` with the part of it that is drawn on.
    DrawnDocument(LetterMeasures& measures, const machine::SheetArea& sheet)
        : measures_(measures), sheet_(sheet) {}

    std::vector<composition::FormField> Fields;
    std::vector<InkedText> Texts; ///< page by page
    std::vector<CutText> Cut;
    std::vector<MissingLetters> Missing;

    machine::Canvas& Paper() { return *this; }
    void BeginForm(std::int16_t positie) { place_ = positie; }
    void BeginField(const composition::FormField& field, std::string_view whole);

  private:
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override;
    void DrawLine(double, double, double, double, std::int32_t) override {}
    void NewPage() override { ++page_; }
    void EndDocument() override {}

    void NoteCut(std::string_view text);
    void NoteMissing(std::string_view text, const machine::FontSpec& font);

    LetterMeasures& measures_;
    machine::SheetArea sheet_;
    int page_ = 1;
    std::int16_t place_ = 0;
    std::size_t field_ = 0;
    std::string_view whole_;
};

/// The surface of a document that is drawn to be looked at.
class DrawnSurface final : public composition::PrintSurface {
  public:
    DrawnSurface(machine::DrawingState& state, DrawnDocument& document)
        : PrintSurface(state), document_(document) {}

    void BeginForm(std::int16_t positie) override { document_.BeginForm(positie); }
    void BeginField(const composition::FormField& field, std::string_view tekst) override {
        document_.BeginField(field, tekst);
    }

  protected:
    machine::Canvas& Page() override { return document_.Paper(); }

  private:
    DrawnDocument& document_;
};

} // namespace precheck
