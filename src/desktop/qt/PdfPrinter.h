#pragma once

#include <functional>
#include <optional>

#include <QString>

#include "desktop/cups/PrintQueue.h"
#include "desktop/cups/StoredChoice.h"
#include "desktop/cups/UserDefaults.h"
#include "desktop/qt/PageUnits.h"

namespace desktop::qt {

/// Asks the user for the file of a document, with `proposed` as the name without a folder. Nothing if the
/// user calls the document off.
using FileAsker = std::function<std::optional<QString>(const QString& proposed)>;

/// Asks in a window of the desktop's own kind, which adds ".pdf" and has the user confirm to replace a file.
std::optional<QString> AskForPdfFile(const QString& proposed);

/// The printer that is always there: each document becomes a PDF file with a name that the user is asked for
/// when the document begins. The file appears when it is complete, or not at all.
class PdfPrinter : public cups::PrintQueue {
  public:
    /// `settingsFile` has the printer's settings as the user wants them, as a print server's queues have
    /// theirs; it is read and never written. An empty name stands for one in the user's own configuration
    /// folder.
    explicit PdfPrinter(FileAsker asker = AskForPdfFile, const QString& settingsFile = {});

    static const char* DeviceName() { return "PDF-bestand"; }

    std::string Name() override { return DeviceName(); }
    std::string Port() override { return "PDF"; }
    std::string Comment() override;
    std::string Driver() override { return DeviceName(); }
    bool Reachable() override { return true; }
    std::uint32_t Status() override { return 0; }
    machine::PrinterCondition Condition() override { return {.Name = Name(), .DotsPerInch = DotsPerInch}; }

    const std::vector<cups::Paper>& Papers() override { return papers_; }
    const std::vector<cups::Bin>& Bins() override { return bins_; }

    cups::QueueSettings ReadSettings() override;
    void WriteSettings(const cups::QueueSettings& settings) override;
    std::string Trouble() override { return defaults_.Trouble(); }

    std::unique_ptr<cups::PrintJob> BeginJob(const std::string& title, const cups::Paper& paper,
                                             const cups::Bin* bin) override;

  private:
    cups::QueueSettings SettingsByFile() const;

    FileAsker asker_;
    cups::UserDefaults defaults_;
    cups::StoredChoice chosen_;
    std::vector<cups::Paper> papers_;
    std::vector<cups::Bin> bins_;
};

/// A document's title as the name of a file: without the marks that a file name may not hold, ending in
/// ".pdf".
QString FileNameForTitle(const std::string& title);

} // namespace desktop::qt
