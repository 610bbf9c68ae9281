#include "desktop/qt/GlyphTables.h"

#include <algorithm>
#include <utility>

namespace desktop::qt {

namespace {

/// Fonts that are kept ready. A document uses about ten.
constexpr std::size_t MostTables = 64;

} // namespace

GlyphTable& GlyphTables::Find(const machine::FontSpec& font) {
    const auto found = std::find_if(tables_.begin(), tables_.end(),
                                    [&font](const auto& table) { return table->Spec() == font; });
    if (found != tables_.end()) {
        last_ = found->get();
        return *last_;
    }
    const auto sibling = std::find_if(tables_.begin(), tables_.end(), [&font](const auto& table) {
        return table->Spec().Name == font.Name && table->Spec().Bold == font.Bold;
    });
    auto table = std::make_unique<GlyphTable>(font, sibling == tables_.end() ? nullptr : sibling->get());
    if (tables_.size() >= MostTables) {
        last_ = nullptr;
        tables_.clear();
    }
    last_ = tables_.emplace_back(std::move(table)).get();
    return *last_;
}

} // namespace desktop::qt
