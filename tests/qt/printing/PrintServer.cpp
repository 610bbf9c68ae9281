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

// The backend gets the job's options as its fifth argument, and the document as a file or on its standard
// input.
constexpr const char* Backend = R"(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct save "Save" "Save"'; exit 0; }
printf '%s' "$5" > @/out/options
if [ $# -ge 6 ]; then cat "$6" > @/out/part; else cat > @/out/part; fi
mv @/out/part @/out/document
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

PrintServer::PrintServer() : folder_(EmptyFolder()) {
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
    Write("bin/backend/save", Backend, true);
    Write("kantoor.ppd", Ppd);
    Start();
}

PrintServer::~PrintServer() {
    Stop();
}

void PrintServer::Start() {
    server_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); }); // also where a test crashes
    server_.start("cupsd",
                  {"-f", "-c", folder_.filePath("cupsd.conf"), "-s", folder_.filePath("cups-files.conf")});
    isUp_ = server_.waitForStarted() && WaitFor("cups.sock") &&
            Run("lpadmin", {"-p", "Kantoor", "-E", "-v", "save:/dev/null", "-P",
                            folder_.filePath("kantoor.ppd"), "-D", "Printer op kantoor"}) &&
            Run("lpadmin", {"-d", "Kantoor"});
}

void PrintServer::Stop() {
    isUp_ = false;
    if (server_.state() != QProcess::NotRunning) {
        server_.terminate();
        if (!server_.waitForFinished(Patience)) {
            server_.kill();
            server_.waitForFinished();
        }
    }
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

QByteArray PrintServer::LastDocument() {
    QFile file(folder_.filePath("out/document"));
    return WaitFor("out/document") && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QString> PrintServer::LastOptions() {
    QMap<QString, QString> options;
    QFile file(folder_.filePath("out/options"));
    if (WaitFor("out/document") && file.open(QIODevice::ReadOnly)) {
        for (const QString& option : QString::fromUtf8(file.readAll()).split(' ', Qt::SkipEmptyParts)) {
            options[option.section('=', 0, 0)] = option.section('=', 1);
        }
    }
    return options;
}
