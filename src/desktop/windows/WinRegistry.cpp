#include "desktop/windows/WinRegistry.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "desktop/windows/Win32.h"

#include "base/Text.h"
#include "desktop/windows/SystemReason.h"
#include "desktop/windows/WideText.h"

namespace desktop::windows {

namespace {

constexpr machine::RegistryKey FirstRoot = 0x80000000U;
constexpr machine::RegistryKey LastRoot = 0x800000FFU;

/// The predefined roots are 32-bit numbers that Windows widens with their sign.
HKEY KeyOf(machine::RegistryKey key) {
    const bool isRoot = key >= FirstRoot && key <= LastRoot;
    const auto wide = isRoot ? static_cast<LONG_PTR>(static_cast<LONG>(key)) : static_cast<LONG_PTR>(key);
    return reinterpret_cast<HKEY>(wide);
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

std::int32_t QueryWide(HKEY key, const std::wstring& name, DWORD& type, std::vector<BYTE>& bytes) {
    while (true) {
        DWORD size = 0;
        LSTATUS status = ::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size);
        if (status == ERROR_SUCCESS) {
            bytes.resize(size);
            status = ::RegQueryValueExW(key, name.c_str(), nullptr, &type, bytes.data(), &size);
        }
        if (status != ERROR_MORE_DATA) { // else it has grown between the two calls
            bytes.resize(status == ERROR_SUCCESS ? size : 0);
            return status;
        }
    }
}

std::string CodePageText(const std::vector<BYTE>& wide) {
    std::wstring text(wide.size() / sizeof(wchar_t), L'\0');
    std::copy_n(wide.data(), text.size() * sizeof(wchar_t), reinterpret_cast<BYTE*>(text.data()));
    return base::text::ToCodePage(FromWide(text));
}

std::int32_t Answer(std::string_view bytes, char* data, std::uint32_t& size) {
    const std::uint32_t room = size;
    size = static_cast<std::uint32_t>(bytes.size());
    if (data == nullptr) {
        return machine::RegSuccess;
    }
    if (room < size) {
        return machine::RegMoreData;
    }
    std::copy(bytes.begin(), bytes.end(), data);
    return machine::RegSuccess;
}

/// True for the answers of a registry that works.
bool IsUsual(std::int32_t status) {
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND ||
           status == ERROR_MORE_DATA || status == ERROR_INVALID_HANDLE;
}

} // namespace

WinRegistry::WinRegistry(RefusalTeller teller) : teller_(std::move(teller)) {}

std::int32_t WinRegistry::Answered(std::int32_t status) {
    if (status == ERROR_SUCCESS) {
        told_ = false;
    } else if (!IsUsual(status) && teller_ && !std::exchange(told_, true)) {
        teller_(WithReason("De instellingen van Tarvik kunnen niet worden gelezen.",
                           static_cast<std::uint32_t>(status)));
    }
    return status;
}

machine::StoreCondition WinRegistry::Condition(const std::string& path) {
    machine::StoreCondition condition;
    condition.Where = "HKEY_CURRENT_USER\\" + path;
    HKEY opened = nullptr;
    const LSTATUS status =
        ::RegOpenKeyExW(HKEY_CURRENT_USER, ToWide(path).c_str(), 0, KEY_QUERY_VALUE, &opened);
    if (status == ERROR_SUCCESS) {
        ::RegCloseKey(opened);
        return condition;
    }
    const bool isMissing = status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
    condition.Trouble = isMissing ? machine::StoreTrouble::Missing : machine::StoreTrouble::Unreadable;
    condition.Reason = SystemReason(static_cast<std::uint32_t>(status));
    return condition;
}

std::int32_t WinRegistry::RegOpenKeyA(machine::RegistryKey root, const std::string& path,
                                      machine::RegistryKey& key) {
    HKEY opened = nullptr;
    const LSTATUS status = MachineSpeaks1252()
                               ? ::RegOpenKeyA(KeyOf(root), path.c_str(), &opened)
                               : ::RegOpenKeyW(KeyOf(root), WideOf1252(path).c_str(), &opened);
    if (status == ERROR_SUCCESS) {
        key = reinterpret_cast<machine::RegistryKey>(opened);
    }
    return status == ERROR_SUCCESS ? status : Answered(status); // an open key has not been read yet
}

std::int32_t WinRegistry::RegCloseKey(machine::RegistryKey key) {
    return ::RegCloseKey(KeyOf(key));
}

std::int32_t WinRegistry::RegQueryValueExA(machine::RegistryKey key, const std::string& name,
                                           std::uint32_t& type, char* data, std::uint32_t& size) {
    return Answered(Query(key, name, type, data, size));
}

std::int32_t WinRegistry::Query(machine::RegistryKey key, const std::string& name, std::uint32_t& type,
                                char* data, std::uint32_t& size) {
    DWORD found = REG_NONE;
    if (MachineSpeaks1252()) {
        DWORD bytes = size;
        const LSTATUS status = ::RegQueryValueExA(KeyOf(key), name.c_str(), nullptr, &found,
                                                  reinterpret_cast<BYTE*>(data), &bytes);
        type = found;
        size = bytes;
        return status;
    }
    std::vector<BYTE> bytes;
    if (const std::int32_t status = QueryWide(KeyOf(key), WideOf1252(name), found, bytes);
        status != machine::RegSuccess) {
        return status;
    }
    type = found;
    return IsText(found) ? Answer(CodePageText(bytes), data, size)
                         : Answer({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, data, size);
}

std::int32_t WinRegistry::RegSetValueExA(machine::RegistryKey key, const std::string& name,
                                         std::uint32_t type, std::string_view bytes) {
    if (MachineSpeaks1252()) {
        return ::RegSetValueExA(KeyOf(key), name.c_str(), 0, type,
                                reinterpret_cast<const BYTE*>(bytes.data()),
                                static_cast<DWORD>(bytes.size()));
    }
    const std::wstring wide = IsText(type) ? WideOf1252(bytes) : std::wstring();
    const void* data = IsText(type) ? static_cast<const void*>(wide.data()) : bytes.data();
    const std::size_t size = IsText(type) ? wide.size() * sizeof(wchar_t) : bytes.size();
    return ::RegSetValueExW(KeyOf(key), WideOf1252(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                            static_cast<DWORD>(size));
}

} // namespace desktop::windows
