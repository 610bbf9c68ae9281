#include "Messages.h"

#include <atomic>
#include <deque>
#include <thread>
#include <vector>

#include "Program.h"
#include "Wire.h"

namespace {

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

// What the user does may open a modal window, and the sending call then lasts as long as that window. So each
// of these goes its own way, and the driver asks whether it has come back.
struct Errand {
    std::atomic<bool> Done = false;
    std::thread Worker;
};
std::deque<Errand> errands;
const HANDLE ErrandDone = CreateEventW(nullptr, FALSE, FALSE, nullptr);

} // namespace

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
        SetEvent(ErrandDone);
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

// A text that a control copies out by a pointer, which only memory of its own process will do for.
std::string Fetch(std::istream& in) {
    const HWND window = Window(in);
    UINT id = 0;
    long long wParam = 0;
    in >> id >> wParam;
    const std::size_t bytes = LongestText * sizeof(wchar_t);
    void* remote = VirtualAllocEx(program.Process, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, id, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(remote),
                        SMTO_NORMAL, PatienceMilliseconds, &result);
    std::vector<wchar_t> text(LongestText);
    ReadProcessMemory(program.Process, remote, text.data(), bytes, nullptr);
    VirtualFreeEx(program.Process, remote, 0, MEM_RELEASE);
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

// A pause of so many milliseconds between two looks, which ends with the next errand: looking all the time
// would keep the program from its work.
std::string Nap(std::istream& in) {
    DWORD milliseconds = 0;
    in >> milliseconds;
    WaitForSingleObject(ErrandDone, milliseconds);
    return "ok";
}
