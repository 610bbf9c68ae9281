#pragma once

#include "platform/qt/CupsServer.h"
#include "platform/qt/PrintQueue.h"
#include "platform/qt/SpoolFile.h"

#include <memory>
#include <string>

namespace platform::qt {

/// What the user is told where the server is silent.
inline constexpr const char* NoAnswerText =
    "De afdrukserver geeft geen antwoord. Het document is niet afgedrukt.";

/// A document on its way to a queue, kept meanwhile in a file that nobody else can open.
class CupsJob : public PrintJob {
  public:
    /// Options are all that the job says.
    CupsJob(std::shared_ptr<CupsServer> server, const std::string& queue, const std::string& queueUri,
            const std::string& title, const CupsOptions& options);

    QIODevice* Output() override { return &file_; }
    void Finish() override;

  private:
    IppMessage NewPrintRequest() const;

    std::shared_ptr<CupsServer> server_;
    std::string queue_;
    std::string queueUri_;
    std::string title_;
    CupsOptions options_;
    SpoolFile file_;
};

/// Where documents wait until the server has them: a folder of the user's own.
QString SpoolFolder();

} // namespace platform::qt
