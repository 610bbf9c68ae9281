// Works the program's windows from outside, as a user would: finds them, reads their texts, and sends them
// what a mouse and a keyboard send. Takes one command a line on standard input and answers each with one line
// on standard output. Windows and numbers are decimal; texts are UTF-16LE in hexadecimal digits, "-" for an
// empty one.
#include <windows.h>

#include <winternl.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <deque>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr UINT PatienceMilliseconds = 10000;
constexpr DWORD LongestNapMilliseconds = 10;
constexpr std::size_t LongestText = 4096;

HANDLE program = nullptr;
DWORD programId = 0;
DWORD programThread = 0;
bool sharesKeyboard = false;

std::string Hex(const void* data, std::size_t bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string hex;
    for (std::size_t i = 0; i < bytes; ++i) {
        const auto byte = static_cast<const unsigned char*>(data)[i];
        hex += digits[byte / 16];
        hex += digits[byte % 16];
    }
    return hex.empty() ? "-" : hex;
}

std::string Hex(const std::wstring& text) {
    return Hex(text.data(), text.size() * sizeof(wchar_t));
}

std::wstring Text(const std::string& hex) {
    std::wstring text;
    for (std::size_t at = 0; at + 4 <= hex.size(); at += 4) {
        const unsigned long low = std::stoul(hex.substr(at, 2), nullptr, 16);
        const unsigned long high = std::stoul(hex.substr(at + 2, 2), nullptr, 16);
        text += static_cast<wchar_t>(high * 256 + low);
    }
    return text;
}

HWND Window(std::istream& in) {
    std::uintptr_t handle = 0;
    in >> handle;
    return reinterpret_cast<HWND>(handle);
}

std::uintptr_t Number(HWND window) {
    return reinterpret_cast<std::uintptr_t>(window);
}

struct Message {
    HWND Window;
    UINT Id;
    WPARAM WParam;
    LPARAM LParam;
};

Message NextMessage(std::istream& in) {
    Message message{};
    message.Window = Window(in);
    long long wParam = 0;
    long long lParam = 0;
    in >> message.Id >> wParam >> lParam;
    message.WParam = static_cast<WPARAM>(wParam);
    message.LParam = static_cast<LPARAM>(lParam);
    return message;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[256];
    const int length = GetClassNameW(window, name, 256);
    return {name, static_cast<std::size_t>(length)};
}

std::wstring TextOf(HWND window) {
    std::vector<wchar_t> text(LongestText);
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                        PatienceMilliseconds, &length);
    return {text.data(), static_cast<std::size_t>(length)};
}

// What the user does may open a modal window, and the sending call then lasts as long as that window. So each
// of these goes its own way, and the driver asks whether it has come back.
struct Errand {
    std::atomic<bool> Done = false;
    std::thread Worker;
};
std::deque<Errand> errands;
const HANDLE errandDone = CreateEventW(nullptr, FALSE, FALSE, nullptr);

std::string StartProgram(std::istream& in) {
    std::string hex;
    in >> hex;
    std::wstring command = Text(hex);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process) == FALSE) {
        return "error " + std::to_string(GetLastError());
    }
    CloseHandle(process.hThread);
    program = process.hProcess;
    programId = process.dwProcessId;
    programThread = process.dwThreadId;
    sharesKeyboard = false;
    return "ok";
}

// "running", or the exit code.
std::string State(std::istream&) {
    DWORD code = 0;
    GetExitCodeProcess(program, &code);
    return code == STILL_ACTIVE ? "running" : std::to_string(code);
}

std::string Terminate(std::istream&) {
    TerminateProcess(program, 9);
    WaitForSingleObject(program, PatienceMilliseconds);
    return "ok";
}

BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == programId) {
        std::ostringstream& out = *reinterpret_cast<std::ostringstream*>(list);
        out << Number(window) << ' ' << IsWindowVisible(window) << ' ' << IsWindowEnabled(window) << ' '
            << Hex(ClassOf(window)) << ' ';
    }
    return TRUE;
}

// Handle, visible, enabled and class of each top window, the front one first.
std::string Windows(std::istream&) {
    std::ostringstream out;
    EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&out));
    return out.str();
}

struct Wanted {
    int Id;
    HWND Found;
};

BOOL CALLBACK FindById(HWND window, LPARAM wanted) {
    Wanted& search = *reinterpret_cast<Wanted*>(wanted);
    if (GetDlgCtrlID(window) == search.Id) {
        search.Found = window;
        return FALSE;
    }
    return TRUE;
}

// The control with this number, however deep it stands; 0 if there is none.
std::string Child(std::istream& in) {
    const HWND window = Window(in);
    Wanted search{0, nullptr};
    in >> search.Id;
    EnumChildWindows(window, FindById, reinterpret_cast<LPARAM>(&search));
    return std::to_string(Number(search.Found));
}

// Visible by itself, visible with all that hold it, enabled by itself, enabled with all that hold it, width
// and height of the inside, class.
std::string Control(std::istream& in) {
    const HWND window = Window(in);
    bool usable = true;
    for (HWND each = window; each != nullptr; each = GetAncestor(each, GA_PARENT)) {
        usable = usable && (GetWindowLongW(each, GWL_STYLE) & WS_DISABLED) == 0;
    }
    const bool visible = (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    RECT area{};
    GetClientRect(window, &area);
    std::ostringstream out;
    out << visible << ' ' << IsWindowVisible(window) << ' ' << IsWindowEnabled(window) << ' ' << usable << ' '
        << area.right << ' ' << area.bottom << ' ' << Hex(ClassOf(window));
    return out.str();
}

// Left, top, width and height on the screen, in dots.
std::string Area(std::istream& in) {
    RECT area{};
    GetWindowRect(Window(in), &area);
    std::ostringstream out;
    out << area.left << ' ' << area.top << ' ' << area.right - area.left << ' ' << area.bottom - area.top;
    return out.str();
}

std::string Resize(std::istream& in) {
    const HWND window = Window(in);
    int width = 0;
    int height = 0;
    in >> width >> height;
    return std::to_string(
        SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE));
}

std::string Parent(std::istream& in) {
    return std::to_string(Number(GetAncestor(Window(in), GA_PARENT)));
}

std::string Id(std::istream& in) {
    return std::to_string(GetDlgCtrlID(Window(in)));
}

std::string GetText(std::istream& in) {
    return Hex(TextOf(Window(in)));
}

// The text of a dialog's icon and words: all texts of its children that are not empty.
BOOL CALLBACK AddText(HWND window, LPARAM list) {
    const std::wstring text = TextOf(window);
    *reinterpret_cast<std::ostringstream*>(list) << Hex(ClassOf(window)) << ' ' << GetDlgCtrlID(window) << ' '
                                                 << Number(window) << ' ' << Hex(text) << ' ';
    return TRUE;
}

// Class, number, handle and text of each control.
std::string Children(std::istream& in) {
    std::ostringstream out;
    EnumChildWindows(Window(in), AddText, reinterpret_cast<LPARAM>(&out));
    return out.str();
}

// Sends a message whose answer comes at once.
std::string Send(std::istream& in) {
    const Message message = NextMessage(in);
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(message.Window, message.Id, message.WParam, message.LParam, SMTO_NORMAL,
                            PatienceMilliseconds, &result) == 0) {
        return "error";
    }
    return std::to_string(static_cast<long long>(result));
}

// Sends a text with a message; the answer is what a message with a number gives.
std::string SendText(std::istream& in) {
    const HWND window = Window(in);
    UINT id = 0;
    long long wParam = 0;
    std::string hex;
    in >> id >> wParam >> hex;
    const std::wstring text = Text(hex);
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, id, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text.c_str()),
                        SMTO_NORMAL, PatienceMilliseconds, &result);
    return std::to_string(static_cast<long long>(result));
}

// Sends messages one after another, as one thing that the user does; answers its number.
std::string Begin(std::istream& in) {
    std::vector<Message> messages;
    while (in >> std::ws && !in.eof()) {
        messages.push_back(NextMessage(in));
    }
    Errand& errand = errands.emplace_back();
    errand.Worker = std::thread([messages, &errand] {
        for (const Message& message : messages) {
            SendMessageW(message.Window, message.Id, message.WParam, message.LParam);
        }
        errand.Done = true;
        SetEvent(errandDone);
    });
    return std::to_string(errands.size() - 1);
}

std::string Done(std::istream& in) {
    std::size_t number = 0;
    in >> number;
    return errands.at(number).Done ? "1" : "0";
}

std::string Post(std::istream& in) {
    const Message message = NextMessage(in);
    return std::to_string(PostMessageW(message.Window, message.Id, message.WParam, message.LParam));
}

// The control that has the keyboard.
std::string Focus(std::istream&) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(programThread, &info);
    return std::to_string(Number(info.hwndFocus));
}

std::string Activate(std::istream& in) {
    return std::to_string(SetForegroundWindow(Window(in)));
}

bool HeldDown(int key) {
    return GetKeyState(key) < 0;
}

// Presses or lets go a key of the keyboard, and returns when the program has taken it from its queue. From
// the first key on the agent shares the program's keyboard: to part with it would let go of the keys that are
// down.
std::string Key(std::istream& in) {
    int key = 0;
    bool down = false;
    in >> key >> down;
    if (!sharesKeyboard) {
        sharesKeyboard = AttachThreadInput(GetCurrentThreadId(), programThread, TRUE) != FALSE;
    }
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.dwFlags = down ? 0U : static_cast<DWORD>(KEYEVENTF_KEYUP);
    SendInput(1, &input, sizeof input);
    const DWORD start = GetTickCount();
    while (HeldDown(key) != down && GetTickCount() - start < PatienceMilliseconds) {
        Sleep(1);
    }
    const bool taken = HeldDown(key) == down;
    return taken ? "ok" : "error";
}

// A text that a control copies out by a pointer, which only memory of its own process will do for.
std::string Fetch(std::istream& in) {
    const HWND window = Window(in);
    UINT id = 0;
    long long wParam = 0;
    in >> id >> wParam;
    const std::size_t bytes = LongestText * sizeof(wchar_t);
    void* remote = VirtualAllocEx(program, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, id, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(remote),
                        SMTO_NORMAL, PatienceMilliseconds, &result);
    std::vector<wchar_t> text(LongestText);
    ReadProcessMemory(program, remote, text.data(), bytes, nullptr);
    VirtualFreeEx(program, remote, 0, MEM_RELEASE);
    text.back() = 0;
    return Hex(std::wstring(text.data()));
}

// A text that the system itself carries from one process to the other, such as an entry of a list.
std::string Entry(std::istream& in) {
    const HWND window = Window(in);
    UINT id = 0;
    long long wParam = 0;
    in >> id >> wParam;
    std::vector<wchar_t> text(LongestText);
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, id, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_NORMAL, PatienceMilliseconds, &result);
    text.back() = 0;
    return Hex(std::wstring(text.data()));
}

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
    NtQueryInformationProcess(program, ProcessBasicInformation, &basic, sizeof basic, nullptr);
    std::uintptr_t table = 0;
    ReadProcessMemory(program, reinterpret_cast<char*>(basic.PebBaseAddress) + tableInPeb, &table,
                      sizeof table, nullptr);
    std::vector<Entry> list(entries);
    ReadProcessMemory(program, reinterpret_cast<void*>(table), list.data(), entries * sizeof(Entry), nullptr);
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
    EnumThreadWindows(programThread, CountTopWindow, reinterpret_cast<LPARAM>(&count));
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
        found += entry.Process == programId ? 1 : 0;
    }
    return found;
}

// GDI objects, windows and kernel handles that the program holds.
std::string Handles(std::istream&) {
    std::ostringstream out;
    out << GdiObjects() << ' ' << UserWindows() << ' ' << KernelHandles();
    return out.str();
}

// Name, type and data, in hexadecimal digits, of each value of a key below the current user's root; "none" if
// there is no such key.
std::string Values(std::istream& in) {
    std::string hex;
    in >> hex;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, Text(hex).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return "none";
    }
    std::ostringstream out;
    std::vector<wchar_t> name(LongestText);
    std::vector<BYTE> data(1 << 16);
    for (DWORD i = 0;; ++i) {
        auto nameLength = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueW(key, i, name.data(), &nameLength, nullptr, &type, data.data(), &size) !=
            ERROR_SUCCESS) {
            break;
        }
        out << Hex(name.data(), nameLength * sizeof(wchar_t)) << ' ' << type << ' ' << Hex(data.data(), size)
            << ' ';
    }
    RegCloseKey(key);
    return out.str();
}

// Writes a value below the current user's root, and makes its key: path, name, type, data, all but the type
// in hexadecimal digits.
std::string SetValue(std::istream& in) {
    std::string path;
    std::string name;
    std::string hex;
    DWORD type = 0;
    in >> path >> name >> type >> hex;
    std::vector<BYTE> data;
    for (std::size_t at = 0; at + 2 <= hex.size(); at += 2) {
        data.push_back(static_cast<BYTE>(std::stoul(hex.substr(at, 2), nullptr, 16)));
    }
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, Text(path).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    const LSTATUS result = name == "-" ? 0
                                       : RegSetValueExW(key, Text(name).c_str(), 0, type, data.data(),
                                                        static_cast<DWORD>(data.size()));
    RegCloseKey(key);
    return std::to_string(result);
}

std::string DeleteKey(std::istream& in) {
    std::string path;
    in >> path;
    return std::to_string(RegDeleteTreeW(HKEY_CURRENT_USER, Text(path).c_str()));
}

// A pause between two looks, which ends with the next errand: looking all the time would keep the program
// from its work.
std::string Nap(std::istream&) {
    WaitForSingleObject(errandDone, LongestNapMilliseconds);
    return "ok";
}

struct Command {
    const char* Name;
    std::string (*Run)(std::istream& in);
};

constexpr Command commands[] = {
    {"start", StartProgram},
    {"state", State},
    {"terminate", Terminate},
    {"windows", Windows},
    {"child", Child},
    {"control", Control},
    {"text", GetText},
    {"children", Children},
    {"send", Send},
    {"sendtext", SendText},
    {"begin", Begin},
    {"done", Done},
    {"post", Post},
    {"area", Area},
    {"resize", Resize},
    {"parent", Parent},
    {"id", Id},
    {"focus", Focus},
    {"activate", Activate},
    {"key", Key},
    {"fetch", Fetch},
    {"entry", Entry},
    {"handles", Handles},
    {"values", Values},
    {"setvalue", SetValue},
    {"deletekey", DeleteKey},
    {"nap", Nap},
};

std::string Obey(const std::string& line) {
    std::istringstream in(line);
    std::string name;
    in >> name;
    for (const Command& command : commands) {
        if (name == command.Name) {
            return command.Run(in);
        }
    }
    return "error no such command";
}

} // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line)) {
        std::cout << Obey(line) << std::endl;
    }
    if (program != nullptr) {
        std::istringstream none;
        Terminate(none);
    }
    // Errands that still wait for an answer end with the process.
    TerminateProcess(GetCurrentProcess(), 0);
}
