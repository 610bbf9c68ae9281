#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>

namespace platform::qt {

/// Has the program end in order when the session does or someone asks it to (SIGTERM, SIGINT, SIGHUP): what
/// it has borrowed, such as the defaults of a printer, is put back then. One at a time; needs a QApplication.
class EndSignals : public QObject {
  public:
    /// `end` runs from the message loop, once for each signal.
    explicit EndSignals(std::function<void()> end);
    ~EndSignals() override;

  private:
    int ends_[2] = {-1, -1}; ///< a handler may write to a socket, and do little else
    std::function<void()> end_;
    QSocketNotifier* notifier_ = nullptr;
};

} // namespace platform::qt
