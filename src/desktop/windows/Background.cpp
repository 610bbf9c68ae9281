#include "desktop/windows/Background.h"

#include <utility>

#include "desktop/windows/GdiObjects.h"

namespace desktop::windows {

using Kernel = Owned<HANDLE, ::CloseHandle>;

struct Background::Shared {
    std::function<void()> Call;
    Kernel Ended{::CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

std::chrono::milliseconds SinceStart() {
    return std::chrono::milliseconds(::GetTickCount64());
}

// The library's own threads of this compiler are not let go safely where they end in the same moment.
Background::Background(std::function<void()> call) : shared_(std::make_shared<Shared>()) {
    shared_->Call = std::move(call);
    auto forThread = std::make_unique<std::shared_ptr<Shared>>(shared_);
    if (const Kernel thread(::CreateThread(nullptr, 0, Run, forThread.get(), 0, nullptr)); thread) {
        static_cast<void>(forThread.release()); // it is the thread's now
    }
}

unsigned long __stdcall Background::Run(void* shared) {
    const std::unique_ptr<std::shared_ptr<Shared>> own(static_cast<std::shared_ptr<Shared>*>(shared));
    try {
        (*own)->Call();
    } catch (...) { // whoever waits sees that nothing has been written
    }
    ::SetEvent((*own)->Ended.Get());
    return 0;
}

bool Background::HasEnded(std::chrono::milliseconds patience) const {
    return ::WaitForSingleObject(shared_->Ended.Get(), static_cast<DWORD>(patience.count())) == WAIT_OBJECT_0;
}

} // namespace desktop::windows
