#include "Refusals.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <vector>

#include <windows.h>
#include <psapi.h>

#include "Program.h"

namespace {

// What stands in for a call: it passes the first calls on, and answers the others itself.
constexpr std::array<std::uint8_t, 0x21> Code = {
    0xF0, 0xFF, 0x0D, 0x31, 0,    0, 0,    // lock dec dword [Passes]
    0x78, 0x06,                            // js refuse
    0xFF, 0x25, 0x21, 0,    0,    0,       // jmp [Original]
    0x65, 0xC7, 0x04, 0x25, 0x68, 0, 0, 0, // refuse: mov dword gs:[68h], error
    0,    0,    0,    0,                   //
    0xB8, 0,    0,    0,    0,             // mov eax, result
    0xC3};                                 // ret
constexpr std::size_t JumpAt = 0x07;
constexpr std::uint8_t JumpIfNegative = 0x78;
constexpr std::uint8_t JumpIfZero = 0x74;
constexpr std::uint8_t JumpIfNotNegative = 0x79;
constexpr std::size_t ErrorAt = 0x17;
constexpr std::size_t ResultAt = 0x1C;
constexpr std::size_t OriginalAt = 0x30;
constexpr std::size_t PassesAt = 0x38;
constexpr std::size_t StubBytes = 0x40;

struct StandIn {
    std::uint64_t Original;
    std::uint8_t* Place;
    std::uint8_t* Slot; // where the program keeps the address of the call
};
// By process and name of the call.
std::map<std::pair<DWORD, std::string>, StandIn> standIns;

std::uint8_t* BaseOfProgram() {
    HMODULE first = nullptr;
    DWORD bytes = 0;
    return EnumProcessModules(program.Process, &first, sizeof(HMODULE), &bytes) == FALSE
               ? nullptr
               : reinterpret_cast<std::uint8_t*>(first);
}

/// The program as it lies in its memory.
std::vector<std::uint8_t> Image(std::uint8_t* base) {
    IMAGE_DOS_HEADER dos{};
    IMAGE_NT_HEADERS64 headers{};
    ReadProcessMemory(program.Process, base, &dos, sizeof dos, nullptr);
    ReadProcessMemory(program.Process, base + dos.e_lfanew, &headers, sizeof headers, nullptr);
    std::vector<std::uint8_t> image(headers.OptionalHeader.SizeOfImage);
    ReadProcessMemory(program.Process, base, image.data(), image.size(), nullptr);
    return image;
}

/// Where the program keeps the address of a call, counted from its base; 0 if it has no such call.
std::size_t SlotOf(const std::vector<std::uint8_t>& image, const std::string& name) {
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image.data());
    const auto* headers =
        reinterpret_cast<const IMAGE_NT_HEADERS64*>(&image[static_cast<std::size_t>(dos->e_lfanew)]);
    const DWORD start = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(&image[start]);
    for (; library->Name != 0; ++library) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA64*>(&image[library->OriginalFirstThunk]);
        for (std::size_t i = 0; names[i].u1.AddressOfData != 0; ++i) {
            const std::size_t at = static_cast<std::size_t>(names[i].u1.AddressOfData) + sizeof(WORD);
            const bool isName = (names[i].u1.Ordinal & IMAGE_ORDINAL_FLAG64) == 0;
            if (isName && name == reinterpret_cast<const char*>(&image[at])) {
                return library->FirstThunk + i * sizeof(IMAGE_THUNK_DATA64);
            }
        }
    }
    return 0;
}

void Put(void* place, const void* bytes, std::size_t size) {
    DWORD before = 0;
    VirtualProtectEx(program.Process, place, size, PAGE_EXECUTE_READWRITE, &before);
    WriteProcessMemory(program.Process, place, bytes, size, nullptr);
    VirtualProtectEx(program.Process, place, size, before, &before);
}

/// The stand-in of a call, made when it is first asked for; nullptr if the program has no such call.
const StandIn* StandInFor(const std::string& name) {
    const auto key = std::make_pair(program.Id, name);
    if (const auto found = standIns.find(key); found != standIns.end()) {
        return &found->second;
    }
    std::uint8_t* base = BaseOfProgram();
    const std::size_t slot = base == nullptr ? 0 : SlotOf(Image(base), name);
    if (slot == 0) {
        return nullptr;
    }
    StandIn made{};
    ReadProcessMemory(program.Process, base + slot, &made.Original, sizeof made.Original, nullptr);
    made.Place = static_cast<std::uint8_t*>(VirtualAllocEx(program.Process, nullptr, StubBytes,
                                                           MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
    std::array<std::uint8_t, StubBytes> stub{};
    const std::int32_t passAll = INT32_MAX;
    std::memcpy(stub.data(), Code.data(), Code.size());
    std::memcpy(&stub[OriginalAt], &made.Original, sizeof made.Original);
    std::memcpy(&stub[PassesAt], &passAll, sizeof passAll);
    Put(made.Place, stub.data(), stub.size());
    made.Slot = base + slot;
    return &standIns.emplace(key, made).first->second;
}

} // namespace

// Name of the call as the program imports it, how many calls still pass, and what the others answer: result
// and error number. With "once" only the first of them fails; with "first" the number is of those that fail,
// and all others pass.
std::string Refuse(std::istream& in) {
    std::string name;
    std::int32_t count = 0;
    std::int32_t result = 0;
    std::int32_t error = 0;
    std::string times;
    in >> name >> count >> result >> error >> times;
    const StandIn* standIn = StandInFor(name);
    if (standIn == nullptr) {
        return "error no such call";
    }
    std::uint8_t jump = JumpIfNegative;
    if (times == "once") {
        jump = JumpIfZero;
        ++count;
    } else if (times == "first") {
        jump = JumpIfNotNegative;
    }
    // The program goes on meanwhile: it calls the system itself until all is written.
    Put(standIn->Slot, &standIn->Original, sizeof standIn->Original);
    Put(standIn->Place + JumpAt, &jump, 1);
    Put(standIn->Place + ErrorAt, &error, sizeof error);
    Put(standIn->Place + ResultAt, &result, sizeof result);
    Put(standIn->Place + PassesAt, &count, sizeof count);
    Put(standIn->Slot, &standIn->Place, sizeof standIn->Place);
    return "ok";
}
