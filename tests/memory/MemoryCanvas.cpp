#include "memory/MemoryCanvas.h"

#include "base/RuntimeError.h"

namespace memory {

machine::TextSize MemoryCanvas::MeasureText(std::string_view text, const machine::FontSpec& font) {
    recorder_.RaiseFailure("MeasureText", base::ErrorPrinter, PrinterError);
    return fonts_.MeasureText(text, font);
}

void MemoryCanvas::DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) {
    recorder_.RaiseFailure("DrawText", base::ErrorPrinter, PrinterError);
    if (!text.empty()) {
        recorder_.Record({"text",
                          {{"surface", surface_},
                           {"page", page_},
                           {"x", x},
                           {"y", y},
                           {"text", std::string(text)},
                           {"font", font.Name},
                           {"size", font.Size},
                           {"bold", font.Bold}}});
    }
}

void MemoryCanvas::DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) {
    recorder_.RaiseFailure("DrawLine", base::ErrorPrinter, PrinterError);
    recorder_.Record({"line",
                      {{"surface", surface_},
                       {"page", page_},
                       {"x1", x1},
                       {"y1", y1},
                       {"x2", x2},
                       {"y2", y2},
                       {"colour", colour}}});
}

void MemoryCanvas::NewPage() {
    recorder_.RaiseFailure("NewPage", base::ErrorPrinter, PrinterError);
    ++page_;
    recorder_.Record({"page", {{"surface", surface_}, {"page", page_}}});
}

void MemoryCanvas::EndDocument() {
    recorder_.RaiseFailure("EndDocument", base::ErrorPrinter, PrinterError);
    page_ = 1;
    recorder_.Record({"end", {{"surface", surface_}}});
}

} // namespace memory
