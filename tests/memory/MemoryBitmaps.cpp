#include "memory/MemoryBitmaps.h"

#include <utility>

#include "base/RuntimeError.h"
#include "memory/MemoryCanvas.h"

namespace memory {

namespace {

void RaiseFailure(Recorder& recorder, const char* call) {
    const base::RuntimeError error = base::OutOfMemory();
    recorder.RaiseFailure(call, error.Number(), error.what());
}

class MemoryPage final : public machine::OffscreenPage, private machine::Canvas {
  public:
    MemoryPage(Recorder& recorder, MemoryFonts& fonts, double width, double height,
               std::shared_ptr<int> alive)
        : recorder_(recorder), canvas_(recorder, fonts, "preview"), width_(width), height_(height),
          alive_(std::move(alive)) {}

    machine::Canvas& Drawing() override { return *this; }

    std::shared_ptr<const machine::PageBitmap> Image() override {
        RaiseFailure(recorder_, "Image");
        return std::make_shared<MemoryBitmap>(width_, height_, texts_, alive_);
    }

    // The first wipe is the one with which a preview sets itself up: drawing starts on page 1.
    void Cls() override {
        if (std::exchange(blank_, false)) {
            return;
        }
        canvas_.NewPage();
        texts_.clear();
    }

    // What is drawn is an event all the same.
    void Discard() override {}

  private:
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return canvas_.MeasureText(text, font);
    }
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override {
        canvas_.DrawText(x, y, text, font);
        texts_.emplace_back(text);
    }
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override {
        canvas_.DrawLine(x1, y1, x2, y2, colour);
    }
    void NewPage() override { Cls(); }
    void EndDocument() override { canvas_.EndDocument(); }

    Recorder& recorder_;
    MemoryCanvas canvas_;
    double width_;
    double height_;
    std::vector<std::string> texts_;
    bool blank_ = true;
    std::shared_ptr<int> alive_;
};

} // namespace

std::unique_ptr<machine::OffscreenPage> MemoryBitmaps::CreatePage(double width, double height) {
    RaiseFailure(recorder_, "CreatePage");
    return std::make_unique<MemoryPage>(recorder_, fonts_, width, height, alive_);
}

} // namespace memory
