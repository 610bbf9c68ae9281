#include "desktop/qt/EndSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <QGuiApplication>
#include <QSessionManager>
#include <sys/socket.h>
#include <unistd.h>

namespace desktop::qt {

namespace {

constexpr std::array<int, 3> Signals = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t signalEnd = -1;

void Tell(int) {
    const int kept = errno; // of the code that was interrupted
    const char mark = 1;
    [[maybe_unused]] const auto written =
        write(signalEnd, &mark, sizeof mark); // a full socket has told already
    errno = kept;
}

} // namespace

EndSignals::EndSignals(std::function<void()> end, std::function<bool()> sessionMayEnd)
    : end_(std::move(end)), sessionMayEnd_(std::move(sessionMayEnd)) {
    if (qGuiApp != nullptr) {
        connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& manager) {
            if (!sessionMayEnd_() && manager.allowsInteraction()) {
                manager.cancel();
            }
        });
    }
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
    signalEnd = ends_[0];
    beforeLimit_ = std::signal(SIGXFSZ, SIG_IGN);
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        before_[i] = std::signal(Signals[i], Tell);
        if (before_[i] == SIG_IGN) { // as nohup asks
            std::signal(Signals[i], SIG_IGN);
        }
    }
}

EndSignals::~EndSignals() {
    if (notifier_ == nullptr) {
        return;
    }
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        std::signal(Signals[i], before_[i]);
    }
    std::signal(SIGXFSZ, beforeLimit_);
    signalEnd = -1;
    for (const int end : ends_) {
        close(end);
    }
}

} // namespace desktop::qt
