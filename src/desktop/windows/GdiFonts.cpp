#include "desktop/windows/GdiFonts.h"

#include <algorithm>
#include <utility>

namespace desktop::windows {

namespace {

/// Fonts that are kept ready. A document uses about ten.
constexpr std::size_t MostFonts = 64;

} // namespace

GdiFont& GdiFonts::Find(const machine::FontSpec& font, BYTE quality) {
    const auto found = std::find_if(fonts_.begin(), fonts_.end(),
                                    [&font](const auto& each) { return each->Spec() == font; });
    if (found != fonts_.end()) {
        last_ = found->get();
        return *last_;
    }
    auto made = std::make_unique<GdiFont>(font, quality);
    if (fonts_.size() >= MostFonts) {
        last_ = nullptr;
        fonts_.clear();
    }
    last_ = fonts_.emplace_back(std::move(made)).get();
    return *last_;
}

} // namespace desktop::windows
