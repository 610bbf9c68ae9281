#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "machine/Bitmaps.h"
#include "memory/MemoryFonts.h"
#include "memory/Recorder.h"

namespace memory {

/// A page's picture in memory: what was drawn on it, as texts in the order of drawing.
class MemoryBitmap final : public machine::PageBitmap {
  public:
    MemoryBitmap(double width, double height, std::vector<std::string> texts, std::shared_ptr<int> alive)
        : width_(width), height_(height), texts_(std::move(texts)), alive_(std::move(alive)) {}

    double Width() const override { return width_; }
    double Height() const override { return height_; }

    const std::vector<std::string>& Texts() const { return texts_; }

  private:
    double width_;
    double height_;
    std::vector<std::string> texts_;
    std::shared_ptr<int> alive_;
};

/// Off-screen pages that record what is drawn on them, as events of the surface "preview". Taking the picture
/// (`Image`) and making a page (`CreatePage`) can be made to fail.
class MemoryBitmaps final : public machine::Bitmaps {
  public:
    MemoryBitmaps(Recorder& recorder, MemoryFonts& fonts)
        : recorder_(recorder), fonts_(fonts), alive_(std::make_shared<int>(0)) {}

    std::unique_ptr<machine::OffscreenPage> CreatePage(double width, double height) override;

    /// Number of pages and pictures that stand.
    std::size_t Alive() const { return static_cast<std::size_t>(alive_.use_count() - 1); }

  private:
    Recorder& recorder_;
    MemoryFonts& fonts_;
    std::shared_ptr<int> alive_;
};

} // namespace memory
