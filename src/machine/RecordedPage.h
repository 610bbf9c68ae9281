#pragma once

#include "machine/Bitmaps.h"
#include "machine/PageRecord.h"

namespace machine {

/// A page off the screen of which the drawing calls are kept, for desktops that paint it whenever it shows.
/// Drawing does not fail: a page that found no memory for a call says so when its picture is taken.
class RecordedPage : public OffscreenPage, private Canvas {
  public:
    Canvas& Drawing() final { return *this; }
    std::shared_ptr<const PageBitmap> Image() final;
    void Cls() final;
    void Discard() final;

  protected:
    /// Whoever measures texts as they will be painted.
    virtual Canvas& Measures() = 0;
    /// The picture with these calls on it.
    virtual std::shared_ptr<const PageBitmap> PictureOf(const PageRecord& record) = 0;

  private:
    TextSize MeasureText(std::string_view text, const FontSpec& font) final;
    void DrawText(double x, double y, std::string_view text, const FontSpec& font) final;
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) final;
    void NewPage() final { Cls(); }
    void EndDocument() final {}

    template <class Call>
    void Record(Call call);

    PageRecord record_;
    enum class State { Whole, Lost, Discarded } state_ = State::Whole;
};

} // namespace machine
