#pragma once

#include <memory>
#include <vector>

#include "desktop/windows/GdiFont.h"

namespace desktop::windows {

/// The fonts of a document, each made once.
class GdiFonts {
  public:
    /// Valid until the next call. `quality` tells how letters are drawn, as lfQuality of a LOGFONT, and is
    /// the same at each call. RuntimeError if the machine makes no more fonts.
    GdiFont& Of(const machine::FontSpec& font, BYTE quality) {
        return last_ != nullptr && last_->Spec() == font ? *last_ : Find(font, quality);
    }

  private:
    GdiFont& Find(const machine::FontSpec& font, BYTE quality);

    std::vector<std::unique_ptr<GdiFont>> fonts_;
    GdiFont* last_ = nullptr;
};

} // namespace desktop::windows
