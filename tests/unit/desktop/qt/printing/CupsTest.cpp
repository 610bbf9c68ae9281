#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "desktop/cups/CupsJob.h"
#include "desktop/cups/CupsQueue.h"
#include "desktop/cups/CupsSpooler.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "print/pdf/PdfReader.h"
#include "unit/desktop/qt/printing/FileLimit.h"
#include "unit/desktop/qt/printing/PrintServer.h"
#include "unit/desktop/qt/printing/TestFonts.h"

namespace desktop::qt {
namespace {

using namespace cups;

class CupsTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!Server.IsUp()) {
            GTEST_SKIP() << "no print server can be started here";
        }
    }

    const Paper* PaperNamed(const std::string& name) {
        for (const Paper& paper : Printers.Queue(0).Papers()) {
            if (paper.Name == name) {
                return &paper;
            }
        }
        return nullptr;
    }

    const Bin* BinNamed(const std::string& name) {
        for (const Bin& bin : Printers.Queue(0).Bins()) {
            if (bin.Name == name) {
                return &bin;
            }
        }
        return nullptr;
    }

    /// Takes any size up to 612 x 1008 points.
    void WritePpdOfAnySize() const {
        QByteArray ppd = Server.Read("kantoor.ppd");
        ppd.replace("Acceptgiro", "Giro").replace("595 864", "595 850");
        ppd.replace("*DefaultFont:",
                    "*CustomPageSize True: \"pop\"\n*ParamCustomPageSize Width: 1 points 100 612\n"
                    "*ParamCustomPageSize Height: 2 points 100 1008\n*HWMargins: 18 18 18 18\n"
                    "*VariablePaperSize: True\n*MaxMediaWidth: \"612\"\n"
                    "*MaxMediaHeight: \"1008\"\n*DefaultFont:");
        Server.Write("eigen.ppd", ppd);
    }

    PrintServer Server;
    std::vector<std::string> Told;
    QtPrinters Printers;
    QtPrinter Printer{Printers, [this](const std::string& text) { Told.push_back(text); }};
    CupsSpooler Spooler{Printers};
};

TEST_F(CupsTest, ListsTheQueuesBeforeThePdfPrinterAndTakesTheDefault) {
    ASSERT_EQ(Printers.Count(), 2);
    EXPECT_EQ(Printers.Item(0).DeviceName, "Kantoor");
    EXPECT_EQ(Printers.Item(0).Port, "save:/dev/null");
    EXPECT_EQ(Printers.Item(1).DeviceName, "PDF-bestand");
    EXPECT_EQ(Printer.DeviceName(), "Kantoor");
}

TEST_F(CupsTest, ReadsPapersBinsAndMarginsAsThePpdWordsThem) {
    const std::vector<Paper>& papers = Printers.Queue(0).Papers();
    ASSERT_EQ(papers.size(), 4U);
    EXPECT_EQ(papers[0].Name, "A4 blanco");
    EXPECT_EQ(papers[0].Id, 9);
    EXPECT_EQ(papers[1].Name, "A4 zonder rand");
    EXPECT_EQ(papers[1].Id, 257);
    EXPECT_EQ(papers[2].Id, 5);
    EXPECT_EQ(papers[3].Name, "Acceptgiro 3 op 1");
    EXPECT_EQ(papers[3].Id, 259);
    EXPECT_NEAR(papers[3].Height, 864 * 20, 1);
    const std::vector<Bin>& bins = Printers.Queue(0).Bins();
    ASSERT_EQ(bins.size(), 3U);
    EXPECT_EQ(bins[0].Name, "Lade boven");
    EXPECT_EQ(bins[0].Id, 1);
    EXPECT_EQ(bins[1].Name, "Lade 3 met formulieren");
    EXPECT_EQ(bins[1].Id, 257);
    EXPECT_EQ(bins[1].PwgSource, "tray-3");
    EXPECT_EQ(bins[2].Id, 4);

    EXPECT_EQ(Printer.PaperSize(), 9);
    EXPECT_EQ(Printer.PaperBin(), 1);
    EXPECT_EQ(Printer.GetDeviceCaps(machine::CapsPhysicalOffsetX), 150);      // 18 points
    EXPECT_NEAR(Printer.GetDeviceCaps(machine::CapsPhysicalOffsetY), 150, 1); // 842 - 824
    EXPECT_NEAR(Printer.ScaleWidth(), (577 - 18) * 20, 0.1);
    EXPECT_NEAR(Printer.ScaleHeight(), (824 - 36) * 20, 0.1);
    Printer.SetOrientation(2);
    EXPECT_EQ(Printer.GetDeviceCaps(machine::CapsPhysicalOffsetX), 300); // the foot of the sheet
}

TEST_F(CupsTest, SendsTheDocumentWithPaperAndTray) {
    Printer.SetDocumentTitle("Namenlijst");
    Printer.SetPaperSize(PaperNamed("Acceptgiro 3 op 1")->Id);
    Printer.SetPaperBin(BinNamed("Lade 3 met formulieren")->Id);
    Printer.Page().DrawText(0, 0, "Regel", Tahoma9);
    Printer.Page().EndDocument();
    EXPECT_TRUE(Told.empty());

    const QMap<QString, QString> options = Server.LastOptions();
    EXPECT_EQ(options["PageSize"].toStdString(), "Acceptgiro");
    EXPECT_EQ(options["InputSlot"].toStdString(), "Tray3");
    EXPECT_EQ(options["media-source"].toStdString(), "tray-3");
    EXPECT_EQ(options["print-scaling"].toStdString(), "none");
    EXPECT_FALSE(options.contains("orientation-requested"));

    const QString copy = Server.Folder() + "/copy.pdf";
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(Server.LastDocument());
    file.close();
    EXPECT_EQ(pdf::Info(copy, "Title"), "Namenlijst");
    const std::vector<pdf::Word> words = pdf::Words(copy);
    ASSERT_EQ(words.size(), 1U);
    EXPECT_NEAR(words[0].Left, 18 / 72.0 * 25.4, 0.01); // where the printable area begins
    EXPECT_TRUE(QDir(QString::fromStdString(SpoolFolder())).isEmpty());
}

TEST_F(CupsTest, SendsTheUsersOptionsButNoneThatChangesThePages) {
    ASSERT_TRUE(Server.Run("lpoptions",
                           {"-p", "Kantoor",          "-o", "number-up=2",     "-o", "landscape",
                            "-o", "PageRegion=Legal", "-o", "media=A4,Manual", "-o", "mirror",
                            "-o", "fitplot",          "-o", "page-set=odd",    "-o", "page-border=single",
                            "-o", "copies=3",         "-o", "ManualFeed=True", "-o", "x-afdeling=4"}));
    EXPECT_EQ(Printer.PaperBin(), 4); // named together with the paper
    Printer.SetPaperSize(PaperNamed("Acceptgiro 3 op 1")->Id);
    Printer.Page().DrawText(0, 0, "Regel", Tahoma9);
    Printer.Page().EndDocument();
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Copies, "1");
    EXPECT_EQ(job->Options["number-up"], "1");
    EXPECT_EQ(job->Options["PageSize"], "Acceptgiro");
    EXPECT_EQ(job->Options["InputSlot"], "Manual");
    EXPECT_EQ(job->Options["x-afdeling"], "4");
    EXPECT_FALSE(job->Options["media"].contains("A4"));
    EXPECT_EQ(job->Options["page-set"], "all");
    EXPECT_EQ(job->Options["page-border"], "none");
    EXPECT_TRUE(job->Options.contains("nomirror"));
    for (const char* option : {"landscape", "PageRegion", "mirror", "fitplot", "ManualFeed"}) {
        EXPECT_FALSE(job->Options.contains(option)) << option;
    }
}

TEST_F(CupsTest, AnotherPaperLeavesTheTrayThatTheUserNamedWithThePaper) {
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Kantoor", "-o", "media=A4,Manual"}));
    const QByteArray found = Server.Read(".cups/lpoptions");
    PrintQueue& queue = Printers.Queue(0);
    QueueSettings settings = queue.ReadSettings();
    const QueueSettings before = settings;
    EXPECT_EQ(settings.BinId, 4);
    settings.PaperId = 5;
    queue.WriteSettings(settings);
    EXPECT_EQ(queue.ReadSettings(), settings);
    queue.WriteSettings(before);
    EXPECT_EQ(queue.ReadSettings(), before);
    EXPECT_EQ(Server.Read(".cups/lpoptions").toStdString(), found.toStdString());
}

TEST_F(CupsTest, AQueueOfAnyNameHasItsPpdAndGetsItsDocuments) {
    for (const char* name : {"Büro", "Privé-A4", "Принтер"}) {
        ASSERT_TRUE(Server.Run(
            "lpadmin", {"-p", name, "-E", "-v", "save:/dev/null", "-P", Server.Folder() + "/kantoor.ppd"}));
    }
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Büro", "-o", "x-afdeling=4"}));
    Printers.Refresh();
    int number = 0;
    for (const char* name : {"Büro", "Privé-A4", "Принтер"}) {
        SCOPED_TRACE(name);
        PrintQueue* const queue = Printers.Find(name);
        ASSERT_NE(queue, nullptr);
        ASSERT_EQ(queue->Papers().size(), 4U);
        EXPECT_EQ(queue->Papers()[0].Name, "A4 blanco"); // the wording of the PPD
        const std::string spoolers = Spooler.Encode(name);
        machine::PrinterHandle handle = 0;
        ASSERT_TRUE(Spooler.OpenPrinterA(spoolers, handle, {}));
        machine::DEVMODE mode{};
        ASSERT_EQ(Spooler.DocumentPropertiesA(handle, spoolers, &mode, nullptr, machine::DM_OUT_BUFFER), 1);
        mode.dmPaperSize = 5;
        mode.dmDefaultSource = 257;
        machine::PRINTER_INFO_2 info{};
        info.pDevMode = &mode;
        ASSERT_TRUE(Spooler.SetPrinterA(handle, 2, &info, 0));
        int index = 0;
        while (Printers.Item(index).DeviceName != name) {
            ++index;
        }
        Printer.Assign(index);
        Printer.Page().DrawText(0, 0, "x", Tahoma9);
        Printer.Page().EndDocument();
        const std::optional<ArrivedJob> job = Server.Job(++number);
        ASSERT_TRUE(job);
        EXPECT_EQ(job->Queue.toStdString(), name);
        EXPECT_EQ(job->Options["PageSize"].toStdString(), "Legal");
        EXPECT_EQ(job->Options["InputSlot"].toStdString(), "Tray3");
    }
    EXPECT_EQ(Server.Job(1)->Options["x-afdeling"].toStdString(), "4");
}

TEST_F(CupsTest, AChoiceHoldsWhereTheUsersFileIsAFolder) {
    ASSERT_TRUE(QDir().mkpath(Server.Folder() + "/.cups/lpoptions"));
    EXPECT_EQ(Spooler.Trouble("Kantoor"), "lpoptions is niet te lezen");
    QueueSettings settings = Printers.Queue(0).ReadSettings();
    settings.PaperId = 5;
    settings.BinId = 257;
    Printers.Queue(0).WriteSettings(settings);
    Printers.Refresh(); // other objects, the same printer
    Printer.Assign(0);
    EXPECT_EQ(Printer.PaperSize(), 5);
    EXPECT_EQ(Printer.PaperBin(), 257);
}

TEST_F(CupsTest, SaysThatTheDocumentIsOneSidedAndWhole) {
    QByteArray ppd = Server.Read("kantoor.ppd");
    ppd.replace("*DefaultFont:", "*OpenUI *Duplex: PickOne\n*DefaultDuplex: DuplexTumble\n"
                                 "*Duplex None: \"\"\n*Duplex DuplexTumble: \"\"\n*CloseUI: *Duplex\n"
                                 "*OpenUI *KMDuplex: PickOne\n*DefaultKMDuplex: Double\n"
                                 "*KMDuplex Single: \"\"\n*KMDuplex Double: \"\"\n*CloseUI: *KMDuplex\n"
                                 "*DefaultFont:");
    Server.Write("zijden.ppd", ppd);
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-P", Server.Folder() + "/zijden.ppd", "-o",
                                       "sides-default=two-sided-long-edge", "-o", "page-ranges-default=2",
                                       "-o", "page-set-default=even", "-o", "mirror-default=true", "-o",
                                       "booklet-default=true", "-o", "page-label-default=Geheim", "-o",
                                       "job-sheets-default=standard,standard"}));
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Kantoor", "-o", "sides=two-sided-short-edge", "-o",
                                         "Duplex=DuplexTumble", "-o", "EFDuplex=TopTop"}));
    Printers.Refresh();
    Printer.Assign(0);
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().EndDocument();
    EXPECT_TRUE(Told.empty());
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    const std::map<const char*, const char*> expected = {
        {"sides", "one-sided"},  {"Duplex", "None"},       {"KMDuplex", "Single"},
        {"number-up", "1"},      {"page-set", "all"},      {"page-ranges", "1-2147483647"},
        {"page-border", "none"}, {"outputorder", "normal"}};
    for (const auto& [name, value] : expected) {
        EXPECT_EQ(job->Options[name].toStdString(), value) << name;
    }
    EXPECT_TRUE(job->Options.contains("nomirror"));
    EXPECT_TRUE(job->Options.contains("nobooklet"));
    EXPECT_EQ(job->Options["page-label"].toStdString(), "");
    EXPECT_FALSE(job->Options.contains("EFDuplex"));
}

TEST_F(CupsTest, SendsTheFormsSheetToAQueueWithAPpdAndToOneWithout) {
    WritePpdOfAnySize();
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-P", Server.Folder() + "/eigen.ppd"}));
    ASSERT_TRUE(Server.Run(
        "lpadmin", {"-p", "Los", "-E", "-v", "save:/dev/null", "-P", Server.Folder() + "/eigen.ppd"}));
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Los", "-o", "media-default=A4"}));
    ASSERT_TRUE(QFile::remove(Server.Folder() + "/ppd/Los.ppd")); // the server has read it
    Printers.Refresh();
    for (const int index : {0, 1}) {
        SCOPED_TRACE(Printers.Item(index).DeviceName);
        const std::vector<Paper> papers = Printers.Queue(index).Papers();
        const auto sheet = std::find_if(papers.begin(), papers.end(), [](const Paper& paper) {
            return paper.Name == "Acceptgiro 210 x 304,8 mm";
        });
        ASSERT_NE(sheet, papers.end());
        EXPECT_NEAR(sheet->Left, 360, 1);
        Printer.Assign(index);
        Printer.SetPaperSize(sheet->Id);
        for (const Bin& bin : Printers.Queue(index).Bins()) {
            if (bin.PwgSource == "tray-3") {
                Printer.SetPaperBin(bin.Id);
            }
        }
        Printer.Page().DrawText(0, 0, "x", Tahoma9);
        Printer.Page().EndDocument();
        const std::optional<ArrivedJob> job = Server.Job(index + 1);
        ASSERT_TRUE(job);
        EXPECT_EQ(job->Options["InputSlot"].toStdString(), "Tray3");
        EXPECT_EQ(job->Options["PageSize"].toStdString(), "Custom.210x304.8mm");
    }
}

TEST_F(CupsTest, ABinThatTheQueueNoLongerHasGivesWayToItsOwn) {
    const auto& queue = dynamic_cast<const CupsQueue&>(Printers.Queue(0));
    const Paper* const a4 = PaperNamed("A4 blanco");
    ASSERT_NE(a4, nullptr);
    EXPECT_EQ(queue.OptionsFor(*a4, nullptr).at("InputSlot"), "Upper");
}

TEST_F(CupsTest, KeepsShowsAndSendsTheUsersOwnSize) {
    WritePpdOfAnySize();
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-P", Server.Folder() + "/eigen.ppd"}));
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Kantoor", "-o", "PageSize=Custom.200x300mm"}));
    Printers.Refresh();
    Printer.Assign(0);
    const Paper* const own = PaperNamed("Eigen formaat 200 x 300 mm");
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(Printer.PaperSize(), own->Id);
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().EndDocument();
    EXPECT_EQ(Server.LastOptions()["PageSize"].toStdString(), "Custom.200x300mm");
    const std::int16_t id = own->Id;
    Printers.Refresh();
    EXPECT_EQ(PaperNamed("Eigen formaat 200 x 300 mm")->Id, id);
}

TEST_F(CupsTest, ANumberMeansTheSamePaperAfterTheListIsReadAnew) {
    const std::int16_t forms = PaperNamed("Acceptgiro 3 op 1")->Id;
    QByteArray ppd = Server.Read("kantoor.ppd");
    for (const char* line : {"*PageSize", "*PageRegion"}) { // goes, and the papers behind it move up
        const qsizetype begin = ppd.indexOf(QByteArray(line) + " A4.Borderless");
        ppd.remove(begin, ppd.indexOf('\n', begin) + 1 - begin);
    }
    Server.Write("nieuw.ppd", ppd);
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-P", Server.Folder() + "/nieuw.ppd"}));
    Printers.Refresh();
    EXPECT_EQ(Printers.Queue(0).Papers().size(), 3U);
    EXPECT_EQ(PaperNamed("Acceptgiro 3 op 1")->Id, forms);
}

TEST_F(CupsTest, APrinterThatDidNotAnswerTakesDocumentsAgainWhenItDoes) {
    ASSERT_EQ(Spooler.DeviceCapabilitiesA("Kantoor", "", machine::DC_PAPERS, nullptr), 4);
    Server.Stop();
    EXPECT_FALSE(Printers.Queue(0).ReachableNow());
    machine::PrinterHandle handle = 0;
    EXPECT_FALSE(Spooler.OpenPrinterA("Kantoor", handle, {}));
    EXPECT_EQ(Spooler.DeviceCapabilitiesA("Kantoor", "", machine::DC_PAPERS, nullptr), -1);
    Server.Start();
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().EndDocument();
    EXPECT_TRUE(Told.empty());
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["InputSlot"].toStdString(), "Upper"); // the driver's default
    EXPECT_TRUE(Spooler.OpenPrinterA("Kantoor", handle, {}));
}

TEST_F(CupsTest, TheUsersPreferredQueueGoesBeforeTheServers) {
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Archief", "-E", "-v", "save:/dev/null"}));
    QtPrinters plain;
    EXPECT_EQ(plain.Item(plain.DefaultIndex()).DeviceName, "Kantoor");
    ASSERT_TRUE(Server.Run("lpoptions", {"-d", "Archief"}));
    QtPrinters preferring;
    EXPECT_EQ(preferring.Item(preferring.DefaultIndex()).DeviceName, "Archief");
}

TEST_F(CupsTest, StoresDefaultsInTheProgramAndKeepsThoseOfOthers) {
    ASSERT_TRUE(Server.Run(
        "lpadmin", {"-p", "Archief", "-E", "-v", "save:/dev/null", "-P", Server.Folder() + "/kantoor.ppd"}));
    Printers.Refresh();
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Archief", "-o", "InputSlot=Manual"}));
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Kantoor", "-o", "x-afdeling=4"}));
    const QByteArray found = Server.Read(".cups/lpoptions");
    machine::PrinterHandle handle = 0;
    ASSERT_TRUE(Spooler.OpenPrinterA("Kantoor", handle, {nullptr, nullptr, machine::PrinterAccessUse}));
    machine::DEVMODE mode{};
    ASSERT_EQ(Spooler.DocumentPropertiesA(handle, "Kantoor", &mode, nullptr, machine::DM_OUT_BUFFER), 1);
    EXPECT_EQ(mode.dmPaperSize, 9);
    mode.dmPaperSize = 5;
    mode.dmDefaultSource = 257;
    machine::PRINTER_INFO_2 info{};
    info.pDevMode = &mode;
    ASSERT_TRUE(Spooler.SetPrinterA(handle, 2, &info, 0));

    machine::DEVMODE stored{};
    ASSERT_EQ(Spooler.DocumentPropertiesA(handle, "Kantoor", &stored, nullptr, machine::DM_OUT_BUFFER), 1);
    EXPECT_EQ(stored.dmPaperSize, 5);
    EXPECT_EQ(stored.dmDefaultSource, 257);
    Printers.Refresh();
    EXPECT_EQ(Printers.Find("Kantoor")->ReadSettings().PaperId, 5);
    EXPECT_EQ(Printers.Find("Archief")->ReadSettings().BinId, 4);
    EXPECT_EQ(Printers.Find("Archief")->ReadSettings().PaperId, 9);
    QtPrinters another; // another run of the program
    EXPECT_EQ(another.Find("Kantoor")->ReadSettings().PaperId, 9);
    EXPECT_EQ(Server.Read(".cups/lpoptions").toStdString(), found.toStdString());

    Printer.Assign(1); // behind Archief
    EXPECT_EQ(Printer.PaperSize(), 5);
    EXPECT_EQ(Printer.PaperBin(), 257);
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().EndDocument();
    const QMap<QString, QString> options = Server.LastOptions();
    EXPECT_EQ(options["PageSize"].toStdString(), "Legal");
    EXPECT_EQ(options["InputSlot"].toStdString(), "Tray3");
    EXPECT_EQ(options["x-afdeling"].toStdString(), "4");
}

TEST_F(CupsTest, TellsAPausedQueue) {
    EXPECT_EQ(Printers.Queue(0).Status(), 0U);
    ASSERT_TRUE(Server.Run("cupsdisable", {"Kantoor"}));
    EXPECT_TRUE(Printers.Queue(0).ReachableNow());
    EXPECT_EQ(Printers.Queue(0).Status() & 1U, 1U);
    ASSERT_TRUE(Server.Run("cupsreject", {"Kantoor"}));
    EXPECT_TRUE(Printers.Queue(0).ReachableNow());
    EXPECT_EQ(Printers.Queue(0).Status() & 4096U, 4096U);
    EXPECT_EQ(Printers.Queue(0).Comment(), "Printer op kantoor");
}

TEST_F(CupsTest, TellsThatAQueueTakesNoDocuments) {
    ASSERT_TRUE(Server.Run("cupsreject", {"Kantoor"}));
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    EXPECT_THROW(Printer.Page().EndDocument(), base::RuntimeError);
    ASSERT_EQ(Told.size(), 1U);
    EXPECT_NE(Told[0].find("Kantoor"), std::string::npos);
    EXPECT_TRUE(QDir(QString::fromStdString(SpoolFolder())).isEmpty());
}

TEST_F(CupsTest, GoesOnWithThePdfPrinterWhereTheServerIsDown) {
    Server.Stop();
    ASSERT_EQ(Printers.Count(), 1);
    EXPECT_EQ(Printer.DeviceName(), "PDF-bestand");
}

TEST_F(CupsTest, SurvivesTheServersEnd) {
    ASSERT_EQ(Printers.Count(), 2);
    EXPECT_EQ(Printer.PaperSize(), 9);
    Server.Stop();
    EXPECT_FALSE(Printers.Queue(0).ReachableNow());
    machine::PrinterHandle handle = 0;
    EXPECT_FALSE(Spooler.OpenPrinterA("Kantoor", handle, {nullptr, nullptr, machine::PrinterAccessUse}));
    EXPECT_FALSE(Printers.Queue(0).Reachable());
    Printer.Assign(0);
    EXPECT_EQ(Printer.PaperSize(), 9);
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    EXPECT_THROW(Printer.Page().EndDocument(), base::RuntimeError);
    EXPECT_EQ(Told, std::vector<std::string>{NoAnswerText});
    EXPECT_TRUE(QDir(QString::fromStdString(SpoolFolder())).isEmpty());
}

TEST_F(CupsTest, TellsAFullDiskAtTheNextPage) {
    int pages = 0;
    const auto print = [&] {
        const FileLimit limit(2000);
        for (; pages < 2000; ++pages) {
            Printer.Page().DrawText(0, 0, "Een pagina vol", Tahoma9);
            Printer.Page().NewPage();
        }
    };
    EXPECT_THROW(print(), base::RuntimeError);
    EXPECT_LT(pages, 500) << "the first 64 KB wait in memory";
    Printer.Page().EndDocument();
    EXPECT_EQ(Told, std::vector<std::string>{"Het document kon niet worden klaargezet.\n" + SpoolFolder() +
                                             "\n" + qt_error_string(EFBIG).toStdString()});
    EXPECT_TRUE(QDir(QString::fromStdString(SpoolFolder())).isEmpty());
}

TEST_F(CupsTest, KeepsAWaitingDocumentWhereNobodyElseFindsIt) {
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    const QDir folder(QString::fromStdString(SpoolFolder()));
    EXPECT_TRUE(folder.exists());
    EXPECT_TRUE(folder.isEmpty());
    const auto others = QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther |
                        QFile::ExeGroup | QFile::ExeOther;
    EXPECT_FALSE(QFileInfo(folder.path()).permissions() & others);
    Printer.Page().EndDocument();
    EXPECT_TRUE(Told.empty());
    EXPECT_TRUE(folder.isEmpty());
}

} // namespace
} // namespace desktop::qt
