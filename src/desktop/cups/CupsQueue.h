#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/cups/CupsMedia.h"
#include "desktop/cups/CupsServer.h"
#include "desktop/cups/PrintQueue.h"

namespace desktop::cups {

/// A queue of the print server. Its stored settings are the user's own defaults, those that `lpoptions`
/// shows, and over them what the program has written.
class CupsQueue : public PrintQueue {
  public:
    CupsQueue(std::shared_ptr<CupsServer> server, CupsAttributes attributes);

    std::string Name() override { return name_; }
    std::string Port() override { return ValueOf(known_, "device-uri"); }
    std::string Comment() override { return ValueOf(known_, "printer-info"); }
    std::string Driver() override { return ValueOf(known_, "printer-make-and-model"); }

    bool Reachable() override;
    bool ReachableNow() override { return Refresh(); }
    std::uint32_t Status() override;
    machine::PrinterCondition Condition() override;
    const std::vector<Paper>& KnownPapers() override { return server_->Told(name_).Media.Papers; }

    const std::vector<Paper>& Papers() override { return Media().Papers; }
    const std::vector<Bin>& Bins() override { return Media().Bins; }

    QueueSettings ReadSettings() override;
    void WriteSettings(const QueueSettings& settings) override;
    std::string Trouble() override { return server_->Defaults().Trouble(); }

    /// All that a job on this paper and from this bin says.
    CupsOptions OptionsFor(const Paper& paper, const Bin* bin) const;
    std::unique_ptr<PrintJob> BeginJob(const std::string& title, const Paper& paper, const Bin* bin) override;

  private:
    bool Refresh();
    std::uint32_t KnownStatus() const;
    QueueSettings SettingsByFiles();
    const CupsMedia& Media();
    bool HasNewMedia(const CupsAttributes& attributes) const;

    std::shared_ptr<CupsServer> server_;
    std::string name_;
    std::string uri_;
    CupsAttributes known_; ///< as the server last told them
    bool isAsked_ = false;
    std::optional<std::chrono::steady_clock::time_point> answered_;
    CupsMedia media_;
};

/// The queues of the print server, and whether it answered.
FoundQueues FindCupsQueues(const std::shared_ptr<CupsServer>& server);

} // namespace desktop::cups
