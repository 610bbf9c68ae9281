#include "base/TextTable.h"

#include "base/RuntimeError.h"

namespace base {

std::string_view TextTable::operator[](std::int32_t index) const {
    if (index < 0 || index > lastIndex_) {
        throw SubscriptOutOfRange();
    }
    if (index >= FilledRows()) {
        return {};
    }
    const auto width = static_cast<std::size_t>(rowWidth_);
    return rows_.substr(static_cast<std::size_t>(index) * width, width);
}

} // namespace base
