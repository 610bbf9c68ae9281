#include "machine/RegistryKeys.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "machine/modRegistry.h"

namespace machine {

std::string FoldedName(std::string_view name) {
    return base::text::Upper(name);
}

std::vector<std::string_view> KeyNames(std::string_view path) {
    std::vector<std::string_view> names;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (end > 0) {
            names.push_back(path.substr(0, end));
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return names;
}

std::string_view UpToNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

std::int32_t AnswerQuery(std::string_view bytes, char* data, std::uint32_t& size) {
    const std::uint32_t room = size;
    size = static_cast<std::uint32_t>(bytes.size());
    if (data == nullptr) {
        return RegSuccess;
    }
    if (room < size) {
        return RegMoreData;
    }
    std::copy(bytes.begin(), bytes.end(), data);
    return RegSuccess;
}

RegistryKey OpenRegistryKeys::Open(std::string path) {
    const RegistryKey key = paths_.empty() ? 1 : paths_.rbegin()->first + 1;
    paths_.emplace(key, std::move(path));
    return key;
}

bool OpenRegistryKeys::Close(RegistryKey key) {
    return paths_.erase(key) > 0 || !machine::modRegistry::RootKeyName(key).empty();
}

std::optional<std::string> OpenRegistryKeys::PathOf(RegistryKey key) const {
    const std::string root = machine::modRegistry::RootKeyName(key);
    if (!root.empty()) {
        return root;
    }
    const auto found = paths_.find(key);
    return found == paths_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace machine
