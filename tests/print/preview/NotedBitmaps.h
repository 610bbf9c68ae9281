#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/qt/QtBitmaps.h"

/// A call of a canvas: a text, or a line if there is none. Lengths are twips.
struct Call {
    double x1;
    double y1;
    double x2;
    double y2;
    std::string text;
    machine::FontSpec font;
    std::int32_t colour;
};

/// Pages that are drawn as usual, with a note of each call on the first one.
class NotedBitmaps final : public machine::Bitmaps {
  public:
    std::vector<Call> Calls;

    std::unique_ptr<machine::OffscreenPage> CreatePage(double width, double height) override {
        return std::make_unique<Page>(bitmaps_.CreatePage(width, height), Calls);
    }

  private:
    class Page final : public machine::OffscreenPage, private machine::Canvas {
      public:
        Page(std::unique_ptr<machine::OffscreenPage> page, std::vector<Call>& calls)
            : page_(std::move(page)), calls_(calls) {}

        machine::Canvas& Drawing() override { return *this; }
        std::shared_ptr<const machine::PageBitmap> Image() override { return page_->Image(); }
        void Cls() override {
            page_->Cls();
            ++wiped_;
        }
        void Discard() override { page_->Discard(); }

      private:
        bool IsFirst() const { return wiped_ <= 1; } // it is wiped once before the document begins

        machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
            return page_->Drawing().MeasureText(text, font);
        }
        void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override {
            page_->Drawing().DrawText(x, y, text, font);
            const machine::TextSize size = MeasureText(text, font);
            if (IsFirst()) {
                calls_.push_back({x, y, x + size.Width, y + size.Height, std::string(text), font, 0});
            }
        }
        void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override {
            page_->Drawing().DrawLine(x1, y1, x2, y2, colour);
            if (IsFirst()) {
                calls_.push_back({x1, y1, x2, y2, "", {}, colour});
            }
        }
        void NewPage() override { Cls(); }
        void EndDocument() override { page_->Drawing().EndDocument(); }

        std::unique_ptr<machine::OffscreenPage> page_;
        std::vector<Call>& calls_;
        int wiped_ = 0;
    };

    desktop::qt::QtBitmaps bitmaps_;
};
