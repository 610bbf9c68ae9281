#include "platform/qt/CupsJob.h"

#include "platform/RuntimeError.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>
#include <QUuid>

#include <array>

namespace platform::qt {

namespace {

constexpr qint64 StaleAfterDays = 1;
constexpr auto PrivateFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto PrivateFolder = PrivateFile | QFileDevice::ExeOwner;

constexpr std::array<const char*, 4> OptionsLeftOut = {"orientation-requested", "fit-to-page", "scaling",
                                                       "page-ranges"};

struct FixedOption {
    const char* Name;
    const char* Value;
};
constexpr std::array<FixedOption, 3> FixedOptions = {{
    {"copies", "1"},
    {"print-scaling", "none"},
    {"document-format", CUPS_FORMAT_PDF},
}};

void RemoveStaleFiles(const QDir& folder) {
    const QDateTime limit = QDateTime::currentDateTime().addDays(-StaleAfterDays);
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files | QDir::Hidden)) {
        if (file.lastModified() < limit) {
            QFile::remove(file.filePath());
        }
    }
}

QString NewSpoolFile() {
    const QDir folder(SpoolFolder());
    folder.mkpath(QStringLiteral("."));
    QFile::setPermissions(folder.path(), PrivateFolder);
    RemoveStaleFiles(folder);
    return folder.filePath(QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".pdf"));
}

} // namespace

QString SpoolFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/drukkeuring/spool");
}

CupsJob::CupsJob(const std::string& queue, const std::string& title, const CupsOptions& options)
    : queue_(queue), title_(title), options_(options), file_(NewSpoolFile()) {
    for (const char* name : OptionsLeftOut) {
        options_.erase(name);
    }
    for (const FixedOption& option : FixedOptions) {
        options_[option.Name] = option.Value;
    }
    if (!file_.open(QIODevice::WriteOnly) || !file_.setPermissions(PrivateFile)) {
        throw RuntimeError(ErrorPrinter,
                           "Het document kon niet worden klaargezet.\n" + file_.errorString().toStdString());
    }
}

CupsJob::~CupsJob() {
    QFile::remove(file_.fileName()); // the complete one; an incomplete one goes with file_
}

void CupsJob::Finish() {
    if (!file_.commit()) {
        throw RuntimeError(ErrorPrinter,
                           "Het document kon niet worden klaargezet.\n" + file_.errorString().toStdString());
    }
    const CupsConnection connection = ConnectCups(CupsJobPatience);
    if (connection == nullptr) {
        throw RuntimeError(ErrorPrinter,
                           "De afdrukserver geeft geen antwoord. Het document is niet afgedrukt.");
    }
    cups_option_t* options = nullptr;
    int count = 0;
    for (const auto& [name, value] : options_) {
        count = cupsAddOption(name.c_str(), value.c_str(), count, &options);
    }
    const int job =
        cupsPrintFile2(connection.get(), queue_.c_str(), QFile::encodeName(file_.fileName()).constData(),
                       title_.c_str(), count, options);
    cupsFreeOptions(count, options);
    if (job == 0) {
        throw RuntimeError(ErrorPrinter, "De printer " + queue_ + " heeft het document niet aangenomen.\n" +
                                             cupsLastErrorString());
    }
}

} // namespace platform::qt
