#pragma once

#include <optional>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>
#include <QMap>
#include <QProcess>
#include <QString>

/// A queue beside "Kantoor". All have four papers and three bins unless they say otherwise.
struct PrintQueueKind {
    QString Name;
    QString Info;
    bool IsEmpty = false; ///< its printer is out of paper and offline
    bool HasPpd = true;   ///< else the server has no PPD to give
    bool HasBins = true;
    bool IsRaw = false; ///< the server knows nothing of its printer
};

/// Known by its attributes alone, as a printer without a driver is.
inline const PrintQueueKind Driverless = {"Driverloos", "Printer zonder PPD", false, false};
/// Its printer tells that it is out of paper and offline, until PutPaperIn.
inline const PrintQueueKind OutOfPaper = {"Leeg", "Printer zonder papier", true};

/// Its printer has one tray and does not tell of it.
inline const PrintQueueKind OneTray = {"Eenlade", "Printer met een lade", false, true, false};
/// What it gets goes to the printer as it is.
inline const PrintQueueKind Raw = {"Kaal", "Printer zonder gegevens", false, true, true, true};

/// What has come out of a queue.
struct ArrivedJob {
    QByteArray Queue;
    QByteArray Title;
    QByteArray Copies;
    QMap<QString, QString> Options;
    QString File; ///< the document
};

/// A print server of the test's own, on a socket in a temporary folder: it knows nothing of the machine's and
/// leaves it alone. Its queue "Kantoor" has a PPD and a backend that saves what would go to the printer.
class PrintServer {
  public:
    /// Points the whole process at the server and at folders of its own. To be called first of all: the
    /// client library asks the environment only once.
    static void PrepareEnvironment();

    explicit PrintServer(const QList<PrintQueueKind>& others = {});
    ~PrintServer();

    /// Installed and running.
    bool IsUp() const { return isUp_; }

    void Stop();
    /// Once more, with all that it knew.
    void Start();

    /// While it is frozen it takes connections and requests, and answers none.
    void Freeze();
    void Thaw();

    void PutPaperIn() const { Write("paper", "x"); }

    /// A job that has come out of a queue, by its number from 1 on; nothing if it does not come.
    std::optional<ArrivedJob> Job(int number) const;
    bool HasJob(int number) const {
        return QFile::exists(folder_.filePath(QString("out/%1/document.pdf").arg(number)));
    }

    /// Document and options of the only job.
    QByteArray LastDocument() const;
    QMap<QString, QString> LastOptions() const;

    QString Folder() const { return folder_.path(); }
    /// Runs an administrator's tool against the server. On a busy machine it may drop a connection: it is
    /// asked again.
    bool Run(const QString& program, const QStringList& arguments) const;

    void Write(const QString& name, const QByteArray& text, bool executable = false) const;
    /// A file of the server or of its user; empty if it is not there.
    QByteArray Read(const QString& name) const;

  private:
    void WritePpd(const PrintQueueKind& queue) const;
    bool WaitFor(const QString& file) const;
    bool WaitUntilItAnswers() const;

    QList<PrintQueueKind> others_;
    QDir folder_;
    QProcess server_;
    bool isUp_ = false;
};
