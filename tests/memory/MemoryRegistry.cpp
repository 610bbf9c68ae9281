#include "memory/MemoryRegistry.h"

#include <utility>

#include "base/Text.h"
#include "machine/modRegistry.h"

namespace memory {
namespace {

std::string CurrentUserPath() {
    return machine::modRegistry::RootKeyName(machine::HkeyCurrentUser) + '\\';
}

/// A full path in the one form that it is stored under.
std::string FoldedPath(const std::string& fullPath) {
    std::string result;
    for (const std::string_view name : machine::KeyNames(fullPath)) {
        result.append(result.empty() ? "" : "\\").append(machine::FoldedName(name));
    }
    return result;
}

std::string BelowCurrentUser(const std::string& fullPath) {
    const std::string root = CurrentUserPath();
    return fullPath.starts_with(root) ? fullPath.substr(root.size()) : fullPath;
}

std::string WithoutClosingNul(std::string_view bytes) {
    return base::text::FromCodePage(bytes.ends_with('\0') ? bytes.substr(0, bytes.size() - 1) : bytes);
}

} // namespace

MemoryRegistry::MemoryRegistry() {
    for (const machine::RegistryKey root : {machine::HkeyClassesRoot, machine::HkeyCurrentUser,
                                            machine::HkeyLocalMachine, machine::HkeyUsers}) {
        values_.try_emplace(machine::modRegistry::RootKeyName(root));
    }
}

void MemoryRegistry::CreateKey(const std::string& path) {
    std::string above;
    const std::string folded = FoldedPath(CurrentUserPath() + path);
    for (const std::string_view name : machine::KeyNames(folded)) {
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
    SetBytes(path, name, machine::RegSz, base::text::ToCodePage(text) + '\0');
}

void MemoryRegistry::SetNumber(const std::string& path, const std::string& name, std::uint32_t number) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>((number >> shift) & 0xFFU));
    }
    SetBytes(path, name, machine::RegDword, bytes);
}

void MemoryRegistry::SetBytes(const std::string& path, const std::string& name, std::uint32_t type,
                              std::string_view bytes) {
    CreateKey(path);
    values_[FoldedPath(CurrentUserPath() + path)][machine::FoldedName(name)] = {type, std::string(bytes)};
}

std::optional<std::string> MemoryRegistry::Text(const std::string& path, const std::string& name) const {
    const Value* const value = Find(CurrentUserPath() + path, name);
    return value == nullptr || value->type != machine::RegSz ? std::nullopt
                                                             : std::optional(WithoutClosingNul(value->bytes));
}

const MemoryRegistry::Value* MemoryRegistry::Find(const std::string& fullPath,
                                                  const std::string& name) const {
    const auto key = values_.find(FoldedPath(fullPath));
    if (key == values_.end()) {
        return nullptr;
    }
    const auto value = key->second.find(machine::FoldedName(name));
    return value == key->second.end() ? nullptr : &value->second;
}

machine::StoreCondition MemoryRegistry::Condition(const std::string& path) {
    machine::StoreCondition condition = Present;
    condition.Where = path;
    if (!HasKey(path)) {
        condition.Trouble = machine::StoreTrouble::Missing;
    }
    return condition;
}

std::int32_t MemoryRegistry::RegOpenKeyA(machine::RegistryKey root, const std::string& path,
                                         machine::RegistryKey& key) {
    if (Fails("RegOpenKeyA")) {
        return machine::RegAccessDenied;
    }
    const std::optional<std::string> above = keys_.PathOf(root);
    if (!above) {
        return machine::RegInvalidHandle;
    }
    std::string full = *above + '\\' + base::text::FromCodePage(machine::UpToNul(path));
    if (!values_.contains(FoldedPath(full))) {
        return machine::RegFileNotFound;
    }
    key = keys_.Open(std::move(full));
    return machine::RegSuccess;
}

std::int32_t MemoryRegistry::RegCloseKey(machine::RegistryKey key) {
    if (Fails("RegCloseKey")) {
        return machine::RegAccessDenied;
    }
    return keys_.Close(key) ? machine::RegSuccess : machine::RegInvalidHandle;
}

std::int32_t MemoryRegistry::RegQueryValueExA(machine::RegistryKey key, const std::string& name,
                                              std::uint32_t& type, char* data, std::uint32_t& size) {
    if (Fails("RegQueryValueExA")) {
        return machine::RegAccessDenied;
    }
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return machine::RegInvalidHandle;
    }
    const Value* const value = Find(*path, base::text::FromCodePage(machine::UpToNul(name)));
    if (value == nullptr) {
        return machine::RegFileNotFound;
    }
    type = value->type;
    return machine::AnswerQuery(value->bytes, data, size);
}

std::int32_t MemoryRegistry::RegSetValueExA(machine::RegistryKey key, const std::string& name,
                                            std::uint32_t type, std::string_view bytes) {
    const std::int32_t result =
        Fails("RegSetValueExA") ? machine::RegAccessDenied
                                : Write(key, base::text::FromCodePage(machine::UpToNul(name)), type, bytes);
    if (OnWrite) {
        OnWrite(BelowCurrentUser(keys_.PathOf(key).value_or("")),
                base::text::FromCodePage(machine::UpToNul(name)), WithoutClosingNul(bytes),
                result == machine::RegSuccess);
    }
    return result;
}

std::int32_t MemoryRegistry::Write(machine::RegistryKey key, const std::string& name, std::uint32_t type,
                                   std::string_view bytes) {
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return machine::RegInvalidHandle;
    }
    const auto found = values_.find(FoldedPath(*path));
    if (found == values_.end()) {
        return machine::RegFileNotFound;
    }
    found->second[machine::FoldedName(name)] = {type, std::string(bytes)};
    return machine::RegSuccess;
}

} // namespace memory
