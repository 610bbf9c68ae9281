#pragma once

#include <QByteArray>
#include <QDir>
#include <QMap>
#include <QProcess>
#include <QString>

/// A print server of the test's own, on a socket in a temporary folder: it knows nothing of the machine's and
/// leaves it alone. Its queue "Kantoor" has a PPD and a backend that saves what would go to the printer.
class PrintServer {
  public:
    /// Points the whole process at the server and at folders of its own. To be called first of all: the
    /// client library asks the environment only once.
    static void PrepareEnvironment();

    PrintServer();
    ~PrintServer();

    /// Installed and running.
    bool IsUp() const { return isUp_; }

    void Stop();

    /// Document and options of the last job, once it has come out of the queue; empty if none does.
    QByteArray LastDocument();
    QMap<QString, QString> LastOptions();

    QString Folder() const { return folder_.path(); }
    /// Runs an administrator's tool against the server.
    bool Run(const QString& program, const QStringList& arguments) const;

  private:
    void Start();
    void Write(const QString& name, const QByteArray& text, bool executable = false) const;
    bool WaitFor(const QString& file) const;

    QDir folder_;
    QProcess server_;
    bool isUp_ = false;
};
