#pragma once

#include <array>
#include <functional>

#include <QObject>
#include <QSocketNotifier>

namespace desktop::qt {

/// Has the program end in order when someone asks it to (SIGTERM, SIGINT, SIGHUP), and be asked when the
/// session may end. A file that outgrows the user's limit (SIGXFSZ) does not end it: that is a failure of the
/// write. One at a time; needs a QApplication.
class EndSignals : public QObject {
  public:
    /// `end` runs from the message loop, once for each signal. `sessionMayEnd` is asked when the session is
    /// about to end, which another program may still prevent: the program goes on after it. False holds the
    /// session up.
    EndSignals(std::function<void()> end, std::function<bool()> sessionMayEnd);
    ~EndSignals() override;

  private:
    int ends_[2] = {-1, -1}; ///< a handler may write to a socket, and do little else
    std::function<void()> end_;
    std::function<bool()> sessionMayEnd_;
    std::array<void (*)(int), 3> before_{}; ///< what the signals did
    void (*beforeLimit_)(int) = nullptr;
    QSocketNotifier* notifier_ = nullptr;
};

} // namespace desktop::qt
