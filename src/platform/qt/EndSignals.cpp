#include "platform/qt/EndSignals.h"

#include <QGuiApplication>

#include <array>
#include <csignal>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace platform::qt {

namespace {

constexpr std::array<int, 3> Signals = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t signalEnd = -1;

void Tell(int) {
    const char mark = 1;
    [[maybe_unused]] const auto written =
        write(signalEnd, &mark, sizeof mark); // a full socket has told already
}

} // namespace

EndSignals::EndSignals(std::function<void()> end) : end_(std::move(end)) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends_) != 0) {
        return;
    }
    notifier_ = new QSocketNotifier(ends_[1], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> marks;
        if (read(ends_[1], marks.data(), marks.size()) > 0) {
            end_();
        }
    });
    if (qGuiApp != nullptr) { // the session asks each program before it ends
        connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { end_(); });
    }
    signalEnd = ends_[0];
    for (const int each : Signals) {
        std::signal(each, Tell);
    }
}

EndSignals::~EndSignals() {
    for (const int each : Signals) {
        std::signal(each, SIG_DFL);
    }
    signalEnd = -1;
    for (const int end : ends_) {
        close(end);
    }
}

} // namespace platform::qt
