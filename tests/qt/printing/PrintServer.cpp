#include "qt/printing/PrintServer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

constexpr int Patience = 10000; // milliseconds

constexpr const char* Configuration = R"(LogLevel warn
Listen @/cups.sock
Browsing Off
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
<Policy wachtwoord>
  <Limit Print-Job Create-Job>
    AuthType Basic
    Require user niemand
    Order allow,deny
    Allow all
  </Limit>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

constexpr const char* Files = R"(SystemGroup root
User $
FileDevice Yes
FatalErrors config
ServerRoot @
ServerBin @/bin
DataDir @/share
CacheDir @/cache
StateDir @/state
RequestRoot @/spool
TempDir @/spool/tmp
AccessLog @/access.log
ErrorLog @/error.log
PageLog @/page.log
)";

// A backend gets the job's number, user, title, copies and options as its arguments, and the document as a
// file or on its standard input. The document's name appears when all is there.
constexpr const char* SaveBackend = R"(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct save "Save" "Save"'; exit 0; }
job=@/out/$1
mkdir -p "$job"
printf '%s' "$PRINTER" > "$job/queue"
printf '%s' "$3" > "$job/title"
printf '%s' "$4" > "$job/copies"
printf '%s' "$5" > "$job/options"
if [ $# -ge 6 ]; then cat "$6" > "$job/part"; else cat > "$job/part"; fi
mv "$job/part" "$job/document.pdf"
)";

// Tells that it has no paper, and does not answer either, until there is a file that stands for paper.
constexpr const char* EmptyBackend = R"(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct leeg "Leeg" "Leeg"'; exit 0; }
echo 'STATE: +media-empty-error,offline-report' >&2
while [ ! -e @/paper ]; do sleep 0.05; done
echo 'STATE: -media-empty-error,offline-report' >&2
exec @/bin/backend/save "$1" "$2" "$3" "$4" "$5" ${6:+"$6"}
)";

constexpr const char* KantoorQueue = R"(<DefaultPrinter Kantoor>
Info Printer op kantoor
DeviceURI save:/dev/null
State Idle
Accepting Yes
</DefaultPrinter>
)";

constexpr const char* OtherQueue = R"(<Printer %1>
Info %2
DeviceURI %3:/dev/null
State Idle
Accepting Yes
</Printer>
)";

constexpr const char* Types = R"(application/pdf pdf string(0,%PDF)
application/octet-stream
application/vnd.cups-raw
)";

constexpr const char* Ppd = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "KANTOOR.PPD"
*Manufacturer: "Proef"
*Product: "(Kantoor)"
*ModelName: "Kantoor"
*ShortNickName: "Kantoor"
*NickName: "Kantoor, model 1"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4 blanco: "<</PageSize[595 842]>>setpagedevice"
*PageSize A4.Borderless/A4 zonder rand: "<</PageSize[595 842]>>setpagedevice"
*PageSize Legal/US Legal: "<</PageSize[612 1008]>>setpagedevice"
*PageSize Acceptgiro/Acceptgiro 3 op 1: "<</PageSize[595 864]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4 blanco: "<</PageSize[595 842]>>setpagedevice"
*PageRegion A4.Borderless/A4 zonder rand: "<</PageSize[595 842]>>setpagedevice"
*PageRegion Legal/US Legal: "<</PageSize[612 1008]>>setpagedevice"
*PageRegion Acceptgiro/Acceptgiro 3 op 1: "<</PageSize[595 864]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "18 36 577 824"
*ImageableArea A4.Borderless: "0 0 595 842"
*ImageableArea Legal: "18 36 594 990"
*ImageableArea Acceptgiro: "18 36 577 846"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
*PaperDimension A4.Borderless: "595 842"
*PaperDimension Legal: "612 1008"
*PaperDimension Acceptgiro: "595 864"
*OpenUI *InputSlot/Bron: PickOne
*OrderDependency: 20 AnySetup *InputSlot
*DefaultInputSlot: Upper
*InputSlot Upper/Lade boven: "<</MediaPosition 0>>setpagedevice"
*InputSlot Tray3/Lade 3 met formulieren: "<</MediaPosition 2>>setpagedevice"
*InputSlot Manual/Handinvoer: "<</MediaPosition 3>>setpagedevice"
*CloseUI: *InputSlot
*DefaultFont: Courier
*Font Courier: Standard "(1.05)" Standard ROM
)ppd";

/// One for the whole process.
QString ServerFolder() {
    static const QTemporaryDir folder;
    return folder.path();
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
        Write("ppd/" + each.Name + ".ppd", Ppd);
    }
    server_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); }); // also where a test crashes
    server_.start("cupsd",
                  {"-f", "-c", folder_.filePath("cupsd.conf"), "-s", folder_.filePath("cups-files.conf")});
    isUp_ = server_.waitForStarted() && WaitFor("cups.sock");
    for (const PrintQueueKind& each : others_) {
        if (!each.HasPpd) { // the server has read what it tells of the queue
            QFile::remove(folder_.filePath("ppd/" + each.Name + ".ppd"));
        }
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
