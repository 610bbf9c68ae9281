#include "unit/desktop/qt/printing/PrintServer.h"

#include <csignal>
#include <string_view>

#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QThread>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "unit/desktop/qt/printing/PrintServerFiles.h"

namespace {

using namespace print_server;

constexpr int Patience = 60000; // milliseconds

/// One for the whole process.
QString ServerFolder() {
    static const QTemporaryDir folder;
    return folder.path();
}

/// Does the server say anything to a question that costs it nothing?
bool Answers(int socket) {
    constexpr std::string_view question =
        "OPTIONS / HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n";
    char first = 0;
    return send(socket, question.data(), question.size(), MSG_NOSIGNAL) ==
               static_cast<ssize_t>(question.size()) &&
           recv(socket, &first, 1, 0) == 1;
}

QString EmptyFolder() {
    QDir(ServerFolder()).removeRecursively();
    QDir().mkpath(ServerFolder());
    return ServerFolder();
}

} // namespace

void PrintServer::PrepareEnvironment() {
    const QDir folder(ServerFolder());
    qputenv("CUPS_SERVER", folder.filePath("cups.sock").toLocal8Bit());
    qputenv("CUPS_SERVERROOT", folder.path().toLocal8Bit()); // where root keeps the users' defaults
    qputenv("HOME", folder.path().toLocal8Bit());
    qputenv("XDG_CACHE_HOME", folder.filePath("user-cache").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", folder.filePath("user-config").toLocal8Bit());
}

PrintServer::PrintServer(const QList<PrintQueueKind>& others) : others_(others), folder_(EmptyFolder()) {
    for (const char* name : {"bin/backend", "bin/daemon", "bin/filter", "bin/notifier", "share/mime",
                             "share/banners", "cache", "state", "spool/tmp", "out", "ppd", "ssl"}) {
        folder_.mkpath(QString::fromLatin1(name));
    }
    const QString exec = QStringLiteral("/usr/lib/cups/daemon/cups-exec");
    if (!QFile::exists(exec) || !QFile::copy(exec, folder_.filePath("bin/daemon/cups-exec"))) {
        return;
    }
    Write("cupsd.conf", Configuration);
    Write("cups-files.conf", Files);
    Write("share/mime/local.types", Types);
    Write("bin/backend/save", SaveBackend, true);
    Write("bin/backend/leeg", EmptyBackend, true);
    Write("kantoor.ppd", Ppd);
    QString queues = KantoorQueue;
    Write("ppd/Kantoor.ppd", Ppd);
    for (const PrintQueueKind& each : others) {
        queues += QString(OtherQueue).arg(each.Name, each.Info, each.IsEmpty ? "leeg" : "save");
    }
    Write("printers.conf", queues.toUtf8());
    Start();
}

PrintServer::~PrintServer() {
    Stop();
}

void PrintServer::Start() {
    QFile::remove(folder_.filePath("cups.sock"));
    for (const PrintQueueKind& each : others_) {
        WritePpd(each);
    }
    server_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); }); // also where a test crashes
    server_.start("cupsd",
                  {"-f", "-c", folder_.filePath("cupsd.conf"), "-s", folder_.filePath("cups-files.conf")});
    isUp_ = server_.waitForStarted() && WaitUntilItAnswers();
    for (const PrintQueueKind& each : others_) {
        if (!each.HasPpd) { // the server has read what it tells of the queue
            QFile::remove(folder_.filePath("ppd/" + each.Name + ".ppd"));
        }
    }
}

void PrintServer::WritePpd(const PrintQueueKind& queue) const {
    QByteArray ppd = Ppd;
    if (!queue.HasBins) {
        const qsizetype begin = ppd.indexOf("*OpenUI *InputSlot");
        ppd.remove(begin, ppd.indexOf("*DefaultFont") - begin);
    }
    if (!queue.IsRaw) {
        Write("ppd/" + queue.Name + ".ppd", ppd);
    }
}

void PrintServer::Stop() {
    isUp_ = false;
    if (server_.state() != QProcess::NotRunning) {
        Thaw();
        server_.terminate();
        if (!server_.waitForFinished(Patience)) {
            server_.kill();
            server_.waitForFinished();
        }
    }
}

void PrintServer::Freeze() {
    kill(static_cast<pid_t>(server_.processId()), SIGSTOP);
}

void PrintServer::Thaw() {
    kill(static_cast<pid_t>(server_.processId()), SIGCONT);
}

bool PrintServer::Run(const QString& program, const QStringList& arguments) const {
    for (const unsigned long pause : {100UL, 500UL}) {
        if (QProcess::execute(program, arguments) == 0) {
            return true;
        }
        QThread::msleep(pause);
    }
    return QProcess::execute(program, arguments) == 0;
}

void PrintServer::Write(const QString& name, const QByteArray& text, bool executable) const {
    const passwd* user = getpwuid(getuid());
    QByteArray filled = text;
    filled.replace("User $\n",
                   getuid() == 0 || user == nullptr ? "" : QByteArray("User ") + user->pw_name + "\n");
    filled.replace("@", folder_.path().toLocal8Bit());
    QFile file(folder_.filePath(name));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(filled);
    }
    if (executable) { // by its owner alone: the server then runs it as the user that it runs as itself
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

bool PrintServer::WaitUntilItAnswers() const {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = folder_.filePath("cups.sock").toLocal8Bit();
    qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < Patience) { // the socket is there before it takes anyone, and before it answers
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const bool answers =
            connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
            Answers(socket);
        close(socket);
        if (answers) {
            return true;
        }
        QThread::msleep(5);
    }
    return false;
}

bool PrintServer::WaitFor(const QString& file) const {
    QElapsedTimer timer;
    timer.start();
    while (!QFile::exists(folder_.filePath(file))) {
        if (timer.elapsed() > Patience) {
            return false;
        }
        QThread::msleep(5);
    }
    return true;
}

QByteArray PrintServer::Read(const QString& name) const {
    QFile file(folder_.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::optional<ArrivedJob> PrintServer::Job(int number) const {
    const QString job = QStringLiteral("out/%1/").arg(number);
    if (!WaitFor(job + "document.pdf")) {
        return std::nullopt;
    }
    ArrivedJob arrived;
    arrived.Queue = Read(job + "queue");
    arrived.Title = Read(job + "title");
    arrived.Copies = Read(job + "copies");
    for (const QString& option : QString::fromUtf8(Read(job + "options")).split(' ', Qt::SkipEmptyParts)) {
        arrived.Options[option.section('=', 0, 0)] = option.section('=', 1);
    }
    arrived.File = folder_.filePath(job + "document.pdf");
    return arrived;
}

QByteArray PrintServer::LastDocument() const {
    const std::optional<ArrivedJob> job = Job(1);
    return job ? Read(job->File) : QByteArray();
}

QMap<QString, QString> PrintServer::LastOptions() const {
    const std::optional<ArrivedJob> job = Job(1);
    return job ? job->Options : QMap<QString, QString>();
}
