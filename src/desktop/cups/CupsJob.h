#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "desktop/cups/CupsServer.h"
#include "desktop/cups/PrintQueue.h"
#include "desktop/cups/SpoolFile.h"

namespace desktop::cups {

/// What the user is told where the server is silent.
inline constexpr const char* NoAnswerText =
    "De afdrukserver geeft geen antwoord. Het document is niet afgedrukt.";

/// The same after the document was sent: the number of its job may stand between the two.
inline constexpr const char* LostAnswerText =
    "De afdrukserver heeft niet bevestigd dat het document is aangekomen. Misschien wordt het toch afgedrukt";
inline constexpr const char* LookFirstText = "Kijk eerst bij de printer voordat u het opnieuw afdrukt.";

/// A document on its way to a queue, kept meanwhile in a file that nobody else can open.
class CupsJob : public PrintJob {
  public:
    /// Options are all that the job says.
    CupsJob(std::shared_ptr<CupsServer> server, const std::string& queue, const std::string& queueUri,
            const std::string& title, const CupsOptions& options);

    int Write(std::string_view bytes) override { return file_.Write(bytes); }
    std::string Loss(int error) const override { return file_.Loss(error); }
    void Finish() override;

  private:
    IppMessage NewPrintRequest() const;
    [[noreturn]] void TellLostAnswer() const;
    int NumberAtServer() const;

    std::shared_ptr<CupsServer> server_;
    std::string queue_;
    std::string queueUri_;
    std::string title_;
    std::string mark_; ///< tells this document from all others at the server
    CupsOptions options_;
    SpoolFile file_;
};

/// Where documents wait until the server has them: a folder of the user's own. Empty if the user has no home,
/// and no document can wait.
std::string SpoolFolder();

} // namespace desktop::cups
