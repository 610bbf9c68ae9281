#include "state/HandbookSections.h"

#include <algorithm>
#include <iterator>

namespace state {

std::string HandbookAnchor(std::string_view form, std::int16_t page) {
    const auto* const found =
        std::find_if(std::begin(HandbookSections), std::end(HandbookSections),
                     [&](const HandbookSection& row) { return row.Form == form && row.Page == page; });
    return found == std::end(HandbookSections) ? std::string() : std::string(found->Anchor);
}

} // namespace state
