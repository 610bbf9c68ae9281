#include "memory/MemoryRegistry.h"

#include "base/Text.h"
#include "machine/modRegistry.h"

#include <utility>

namespace platform {
namespace {

std::string CurrentUserPath() {
    return modRegistry::RootKeyName(HkeyCurrentUser) + '\\';
}

/// A full path in the one form that it is stored under.
std::string FoldedPath(const std::string& fullPath) {
    std::string result;
    for (const std::string_view name : KeyNames(fullPath)) {
        result.append(result.empty() ? "" : "\\").append(FoldedName(name));
    }
    return result;
}

std::string BelowCurrentUser(const std::string& fullPath) {
    const std::string root = CurrentUserPath();
    return fullPath.starts_with(root) ? fullPath.substr(root.size()) : fullPath;
}

std::string WithoutClosingNul(std::string_view bytes) {
    return text::FromCodePage(bytes.ends_with('\0') ? bytes.substr(0, bytes.size() - 1) : bytes);
}

} // namespace

MemoryRegistry::MemoryRegistry() {
    for (const RegistryKey root : {HkeyClassesRoot, HkeyCurrentUser, HkeyLocalMachine, HkeyUsers}) {
        values_.try_emplace(modRegistry::RootKeyName(root));
    }
}

void MemoryRegistry::CreateKey(const std::string& path) {
    std::string above;
    const std::string folded = FoldedPath(CurrentUserPath() + path);
    for (const std::string_view name : KeyNames(folded)) {
        above.append(above.empty() ? "" : "\\").append(name);
        values_.try_emplace(above);
    }
}

void MemoryRegistry::RemoveKey(const std::string& path) {
    const std::string folded = FoldedPath(CurrentUserPath() + path);
    std::erase_if(values_, [&folded](const auto& key) {
        return key.first == folded || key.first.starts_with(folded + '\\');
    });
}

bool MemoryRegistry::HasKey(const std::string& path) const {
    return values_.contains(FoldedPath(CurrentUserPath() + path));
}

void MemoryRegistry::SetText(const std::string& path, const std::string& name, const std::string& text) {
    SetBytes(path, name, RegSz, text::ToCodePage(text) + '\0');
}

void MemoryRegistry::SetNumber(const std::string& path, const std::string& name, std::uint32_t number) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>((number >> shift) & 0xFFU));
    }
    SetBytes(path, name, RegDword, bytes);
}

void MemoryRegistry::SetBytes(const std::string& path, const std::string& name, std::uint32_t type,
                              std::string_view bytes) {
    CreateKey(path);
    values_[FoldedPath(CurrentUserPath() + path)][FoldedName(name)] = {type, std::string(bytes)};
}

std::optional<std::string> MemoryRegistry::Text(const std::string& path, const std::string& name) const {
    const Value* const value = Find(CurrentUserPath() + path, name);
    return value == nullptr || value->type != RegSz ? std::nullopt
                                                    : std::optional(WithoutClosingNul(value->bytes));
}

const MemoryRegistry::Value* MemoryRegistry::Find(const std::string& fullPath,
                                                  const std::string& name) const {
    const auto key = values_.find(FoldedPath(fullPath));
    if (key == values_.end()) {
        return nullptr;
    }
    const auto value = key->second.find(FoldedName(name));
    return value == key->second.end() ? nullptr : &value->second;
}

std::int32_t MemoryRegistry::RegOpenKeyA(RegistryKey root, const std::string& path, RegistryKey& key) {
    if (Fails("RegOpenKeyA")) {
        return RegAccessDenied;
    }
    const std::optional<std::string> above = keys_.PathOf(root);
    if (!above) {
        return RegInvalidHandle;
    }
    std::string full = *above + '\\' + text::FromCodePage(UpToNul(path));
    if (!values_.contains(FoldedPath(full))) {
        return RegFileNotFound;
    }
    key = keys_.Open(std::move(full));
    return RegSuccess;
}

std::int32_t MemoryRegistry::RegCloseKey(RegistryKey key) {
    if (Fails("RegCloseKey")) {
        return RegAccessDenied;
    }
    return keys_.Close(key) ? RegSuccess : RegInvalidHandle;
}

std::int32_t MemoryRegistry::RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                              char* data, std::uint32_t& size) {
    if (Fails("RegQueryValueExA")) {
        return RegAccessDenied;
    }
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return RegInvalidHandle;
    }
    const Value* const value = Find(*path, text::FromCodePage(UpToNul(name)));
    if (value == nullptr) {
        return RegFileNotFound;
    }
    type = value->type;
    return AnswerQuery(value->bytes, data, size);
}

std::int32_t MemoryRegistry::RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                            std::string_view bytes) {
    const std::int32_t result = Fails("RegSetValueExA")
                                    ? RegAccessDenied
                                    : Write(key, text::FromCodePage(UpToNul(name)), type, bytes);
    if (OnWrite) {
        OnWrite(BelowCurrentUser(keys_.PathOf(key).value_or("")), text::FromCodePage(UpToNul(name)),
                WithoutClosingNul(bytes), result == RegSuccess);
    }
    return result;
}

std::int32_t MemoryRegistry::Write(RegistryKey key, const std::string& name, std::uint32_t type,
                                   std::string_view bytes) {
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return RegInvalidHandle;
    }
    const auto found = values_.find(FoldedPath(*path));
    if (found == values_.end()) {
        return RegFileNotFound;
    }
    found->second[FoldedName(name)] = {type, std::string(bytes)};
    return RegSuccess;
}

} // namespace platform
