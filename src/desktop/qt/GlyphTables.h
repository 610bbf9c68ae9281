#pragma once

#include <memory>
#include <vector>

#include "desktop/qt/GlyphTable.h"

namespace desktop::qt {

/// The fonts of a document, each with its table.
class GlyphTables {
  public:
    /// Valid until the next call.
    GlyphTable& Of(const machine::FontSpec& font) {
        return last_ != nullptr && last_->Spec() == font ? *last_ : Find(font);
    }

  private:
    GlyphTable& Find(const machine::FontSpec& font);

    std::vector<std::unique_ptr<GlyphTable>> tables_;
    GlyphTable* last_ = nullptr;
};

} // namespace desktop::qt
