#include "Handles.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <vector>

#include <windows.h>
#include <winternl.h>

#include "Program.h"

namespace {

// Entries of the table of GDI objects that a process shares with the system; the count that Windows would
// give for it is not answered by Wine.
int GdiObjects() {
    constexpr std::size_t tableInPeb = 0xF8;
    constexpr std::size_t entries = 0x4000;
    struct Entry {
        std::uint64_t Object;
        std::uint16_t Process;
        std::uint16_t Count;
        std::uint16_t Upper;
        std::uint16_t Type;
        std::uint64_t User;
    };
    PROCESS_BASIC_INFORMATION basic{};
    NtQueryInformationProcess(program.Process, ProcessBasicInformation, &basic, sizeof basic, nullptr);
    std::uintptr_t table = 0;
    ReadProcessMemory(program.Process, reinterpret_cast<char*>(basic.PebBaseAddress) + tableInPeb, &table,
                      sizeof table, nullptr);
    std::vector<Entry> list(entries);
    ReadProcessMemory(program.Process, reinterpret_cast<void*>(table), list.data(), entries * sizeof(Entry),
                      nullptr);
    return static_cast<int>(
        std::count_if(list.begin(), list.end(), [](const Entry& entry) { return entry.Type != 0; }));
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountTopWindow(HWND window, LPARAM count) {
    CountWindow(window, count);
    EnumChildWindows(window, CountWindow, count);
    return TRUE;
}

int UserWindows() {
    int count = 0;
    EnumThreadWindows(program.Thread, CountTopWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

int KernelHandles() {
    constexpr auto handleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    struct Entry {
        std::uint32_t Process;
        std::uint8_t Type;
        std::uint8_t Flags;
        std::uint16_t Value;
        void* Object;
        std::uint32_t Access;
    };
    std::vector<char> answer(1 << 20);
    if (NtQuerySystemInformation(handleInformation, answer.data(), static_cast<ULONG>(answer.size()),
                                 nullptr) < 0) {
        return -1;
    }
    std::uint32_t count = 0;
    std::memcpy(&count, answer.data(), sizeof count);
    int found = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        Entry entry{};
        std::memcpy(&entry, answer.data() + sizeof(void*) + i * sizeof entry, sizeof entry);
        found += entry.Process == program.Id ? 1 : 0;
    }
    return found;
}

} // namespace

std::string Handles(std::istream&) {
    std::ostringstream out;
    out << GdiObjects() << ' ' << UserWindows() << ' ' << KernelHandles();
    return out.str();
}
