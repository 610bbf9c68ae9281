#include "desktop/qt/PdfPrinter.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <QDir>
#include <QFile>

#include "base/RuntimeError.h"
#include "base/Units.h"
#include "desktop/cups/PaperTable.h"
#include "desktop/cups/PrintQueue.h"
#include "desktop/cups/SheetSize.h"
#include "desktop/qt/FileQuestion.h"
#include "desktop/regfile/FileReplacement.h"
#include "desktop/regfile/UserFolders.h"

namespace desktop::qt {

namespace {

/// A document on its way into a file, which is there when it is complete, or stays as it was.
class FileJob final : public cups::PrintJob {
  public:
    /// Without a path the document goes nowhere. RuntimeError(ErrorPrinter) if the file cannot be made.
    explicit FileJob(const std::optional<QString>& path);

    bool IsWanted() const override { return path_.has_value(); }
    int Write(std::string_view bytes) override { return file_.Write(bytes); }
    std::string Loss(int error) const override;
    void Finish() override;

  private:
    [[noreturn]] void Fail(int error) const;

    std::optional<QString> path_;
    regfile::FileReplacement file_;
};

FileJob::FileJob(const std::optional<QString>& path) : path_(path) {
    if (!path_) {
        return;
    }
    if (const int error = file_.Begin(QFile::encodeName(*path_).toStdString()); error != 0) {
        Fail(error);
    }
}

void FileJob::Finish() {
    if (!path_) {
        return;
    }
    if (const int error = file_.Commit(); error != 0) {
        Fail(error);
    }
}

std::string FileJob::Loss(int error) const {
    return QStringLiteral("Het bestand kon niet worden geschreven.\n%1\n%2")
        .arg(QDir::toNativeSeparators(*path_), qt_error_string(error))
        .toStdString();
}

void FileJob::Fail(int error) const {
    throw base::RuntimeError(base::ErrorPrinter, Loss(error));
}

/// Bytes of a name without its ending. File systems take 255, and while the file is written it has a mark of
/// a few letters behind it.
constexpr qsizetype LongestFileName = 200;

/// The sheet of three forms has no code of its own.
constexpr std::int16_t PaperForm = cups::FirstPrivateId;

/// A name and where it stands in the settings.
struct Setting {
    const char* Name;
    std::int16_t cups::QueueSettings::*Value;
};
constexpr std::array<Setting, 3> StoredSettings = {{
    {"orientation", &cups::QueueSettings::Orientation},
    {"paper", &cups::QueueSettings::PaperId},
    {"bin", &cups::QueueSettings::BinId},
}};

/// Empty if the user has no home.
std::string OwnSettingsFile() {
    const std::string folder = regfile::UserFolder("XDG_CONFIG_HOME", "/.config");
    return folder.empty() ? folder : folder + "/drukkeuring/pdf-bestand.conf";
}

cups::Paper PaperOf(std::int16_t id, const char* name, double width, double height) {
    cups::Paper paper;
    paper.Id = id;
    paper.Name = name;
    paper.Width = width;
    paper.Height = height;
    return paper;
}

double TwipsOfMillimetres(double millimetres) {
    return millimetres / base::MillimetresPerInch * base::TwipsPerInch;
}

double TwipsOfInches(double inches) {
    return inches * base::TwipsPerInch;
}

} // namespace

std::optional<QString> AskForPdfFile(const QString& proposed) {
    return AskForFile(proposed,
                      {QStringLiteral("Opslaan als PDF-bestand"),
                       QStringLiteral("PDF-bestanden (*.pdf);;Alle bestanden (*)"), QStringLiteral(".pdf")});
}

QString FileNameForTitle(const std::string& title) {
    QString name;
    for (const QChar c : QString::fromStdString(title)) {
        name += c.category() == QChar::Other_Control || QStringLiteral("/\\:*?\"<>|").contains(c)
                    ? QChar(u'-')
                    : c;
    }
    name = name.trimmed();
    while (name.startsWith(u'.')) {
        name.remove(0, 1);
    }
    while (QFile::encodeName(name).size() > LongestFileName) {
        name.chop(name.size() > 1 && name.back().isLowSurrogate() ? 2 : 1);
    }
    return (name.isEmpty() ? QStringLiteral("Document") : name) + QStringLiteral(".pdf");
}

PdfPrinter::PdfPrinter(FileAsker asker, const QString& settingsFile)
    : asker_(std::move(asker)),
      defaults_(settingsFile.isEmpty() ? OwnSettingsFile() : QFile::encodeName(settingsFile).toStdString(),
                {}),
      papers_{PaperOf(PaperForm, cups::FormSheetName, cups::FormSheet.Width, cups::FormSheet.Height),
              PaperOf(cups::PaperA4, "A4", TwipsOfMillimetres(210), TwipsOfMillimetres(297)),
              PaperOf(cups::PaperA5, "A5", TwipsOfMillimetres(148), TwipsOfMillimetres(210)),
              PaperOf(cups::PaperLetter, "Letter", TwipsOfInches(8.5), TwipsOfInches(11)),
              PaperOf(cups::PaperLegal, "Legal", TwipsOfInches(8.5), TwipsOfInches(14))} {
    cups::Bin bin;
    bin.Id = cups::BinAutomatic;
    bin.Name = "Automatisch";
    bins_.push_back(bin);
}

std::string PdfPrinter::Comment() {
    return "Elk document wordt een PDF-bestand";
}

cups::QueueSettings PdfPrinter::SettingsByFile() const {
    cups::QueueSettings settings{cups::Portrait, PaperForm, cups::BinAutomatic, 1};
    const cups::CupsOptions options = defaults_.Options(DeviceName());
    for (const Setting& setting : StoredSettings) {
        const auto option = options.find(setting.Name);
        if (option != options.end()) {
            bool isNumber = false;
            const short value = QByteArray::fromStdString(option->second).toShort(&isNumber);
            settings.*setting.Value = isNumber ? value : settings.*setting.Value;
        }
    }
    if (settings.Orientation != cups::Landscape) {
        settings.Orientation = cups::Portrait;
    }
    return settings;
}

cups::QueueSettings PdfPrinter::ReadSettings() {
    return chosen_.Over(SettingsByFile(), papers_, bins_);
}

void PdfPrinter::WriteSettings(const cups::QueueSettings& settings) {
    chosen_.Write(settings, SettingsByFile());
}

std::unique_ptr<cups::PrintJob> PdfPrinter::BeginJob(const std::string& title, const cups::Paper&,
                                                     const cups::Bin*) {
    return std::make_unique<FileJob>(asker_(FileNameForTitle(title)));
}

} // namespace desktop::qt
