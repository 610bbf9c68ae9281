#pragma once

#include "platform/qt/CupsConnection.h"
#include "platform/qt/CupsMedia.h"
#include "platform/qt/PrintQueue.h"

#include <string>
#include <vector>

namespace platform::qt {

/// A queue of the print server. The user's own defaults, those that `lpoptions` shows, are its stored
/// settings.
class CupsQueue : public PrintQueue {
  public:
    CupsQueue(const std::string& name, const CupsOptions& options) : name_(name), known_(options) {}

    std::string Name() override { return name_; }
    std::string Port() override { return OptionValue(known_, "device-uri"); }
    std::string Comment() override { return OptionValue(known_, "printer-info"); }
    std::string Driver() override { return OptionValue(known_, "printer-make-and-model"); }

    bool Reachable() override { return Refresh(); }
    std::uint32_t Status() override;

    const std::vector<Paper>& Papers() override { return Media().Papers; }
    const std::vector<Bin>& Bins() override { return Media().Bins; }

    QueueSettings ReadSettings() override;
    bool WriteSettings(const QueueSettings& settings) override;

    std::unique_ptr<PrintJob> BeginJob(const std::string& title, const Paper& paper, const Bin* bin) override;

  private:
    bool Refresh();
    const CupsMedia& Media();

    std::string name_;
    CupsOptions known_; ///< as the server last told them
    CupsMedia media_;
};

/// The queues of the print server; none if it does not answer.
FoundQueues FindCupsQueues();

} // namespace platform::qt
