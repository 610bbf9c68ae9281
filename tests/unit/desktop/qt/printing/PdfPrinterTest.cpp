#include "desktop/qt/PdfPrinter.h"

#include <cerrno>
#include <functional>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>
#include <pwd.h>

#include "base/RuntimeError.h"
#include "desktop/cups/PaperTable.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "print/pdf/PdfReader.h"
#include "unit/desktop/qt/printing/FileLimit.h"
#include "unit/desktop/qt/printing/TestFonts.h"

namespace {
char* machinesHome = nullptr; // what the machine knows as the user's home; nullptr: the real one
}

// The linker sends all calls of getpwuid() here.
extern "C" passwd* __real_getpwuid(uid_t user);
extern "C" passwd* __wrap_getpwuid(uid_t user) {
    static passwd entry{};
    entry.pw_dir = machinesHome;
    return machinesHome == nullptr ? __real_getpwuid(user) : &entry;
}

namespace desktop::qt {
namespace {

constexpr std::int16_t PaperForm = cups::FirstPrivateId;

/// The PDF printer alone, in a folder of its own, with a user who gives the answers of `Answers` in turn.
class PdfPrinterTest : public testing::Test {
  protected:
    std::optional<QString> Answer(const QString& proposed) {
        Proposed.push_back(proposed);
        return Path.isEmpty() ? std::nullopt : std::optional(Path);
    }

    QString SettingsFile() const { return Folder.filePath("instellingen/pdf.conf"); }

    std::unique_ptr<PdfPrinter> NewPdfPrinter() {
        return std::make_unique<PdfPrinter>([this](const QString& proposed) { return Answer(proposed); },
                                            SettingsFile());
    }

    void PrintOneLine() {
        Printer.SetDocumentTitle("Proef");
        Printer.Page().DrawText(567, 567, "Regel", Tahoma9);
        Printer.Page().EndDocument();
    }

    QTemporaryDir Folder;
    QString Path = Folder.filePath("uit.pdf");
    std::vector<QString> Proposed;
    std::vector<std::string> Told;
    QtPrinters Printers{NewPdfPrinter(), [] { return cups::FoundQueues{}; }};
    QtPrinter Printer{Printers, [this](const std::string& text) { Told.push_back(text); }};
};

TEST_F(PdfPrinterTest, IsTheOnlyPrinterWhereThereIsNoServer) {
    ASSERT_EQ(Printers.Count(), 1);
    EXPECT_EQ(Printers.Item(0).DeviceName, "PDF-bestand");
    EXPECT_EQ(Printers.Item(0).Port, "PDF");
    EXPECT_EQ(Printer.DeviceName(), "PDF-bestand");
    EXPECT_EQ(Printer.Port(), "PDF");
    EXPECT_THROW(Printers.Item(1), base::RuntimeError);
    EXPECT_THROW(Printers.Item(-1), base::RuntimeError);
}

TEST_F(PdfPrinterTest, HasTheWholeSheetAsItsPrintableArea) {
    Printer.SetPaperSize(cups::PaperA4);
    EXPECT_EQ(Printer.Orientation(), 1);
    EXPECT_NEAR(Printer.Width(), 11906, 0.5);
    EXPECT_NEAR(Printer.Height(), 16838, 0.5);
    EXPECT_EQ(Printer.ScaleLeft(), 0);
    EXPECT_EQ(Printer.ScaleTop(), 0);
    EXPECT_EQ(Printer.ScaleWidth(), Printer.Width());
    EXPECT_EQ(Printer.ScaleHeight(), Printer.Height());
    EXPECT_EQ(Printer.GetDeviceCaps(machine::CapsPhysicalOffsetX), 0);
    EXPECT_EQ(Printer.GetDeviceCaps(machine::CapsPhysicalOffsetY), 0);
    EXPECT_EQ(Printer.GetDeviceCaps(machine::CapsLogPixelsX), 600);
    EXPECT_EQ(Printer.GetDeviceCaps(machine::CapsLogPixelsY), 600);
}

TEST_F(PdfPrinterTest, StartsOnTheSheetOfThreeForms) {
    EXPECT_EQ(Printers.Queue(0).Papers().front().Name, "Acceptgiro 210 x 304,8 mm");
    EXPECT_EQ(Printer.PaperSize(), Printers.Queue(0).Papers().front().Id);
    EXPECT_NEAR(Printer.Width(), 11905.5, 0.1);
    EXPECT_NEAR(Printer.Height(), 17280, 0.1);
    PrintOneLine();
    EXPECT_EQ(pdf::Info(Path, "Page size").substr(0, 9), "595 x 864");
}

TEST_F(PdfPrinterTest, TurnsItsMeasuresWithTheSheet) {
    Printer.SetPaperSize(cups::PaperA4);
    Printer.SetOrientation(2);
    EXPECT_NEAR(Printer.ScaleWidth(), 16838, 0.5);
    EXPECT_NEAR(Printer.ScaleHeight(), 11906, 0.5);
}

TEST_F(PdfPrinterTest, RefusesWhatItDoesNotHave) {
    const auto numberOf = [](auto step) {
        try {
            step();
        } catch (const base::RuntimeError& error) {
            return error.Number();
        }
        return 0;
    };
    EXPECT_EQ(numberOf([this] { Printer.SetPaperSize(8); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(numberOf([this] { Printer.SetPaperBin(1); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(numberOf([this] { Printer.SetOrientation(0); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(numberOf([this] { Printer.SetOrientation(3); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(numberOf([this] { Printer.Assign(1); }), base::ErrorSubscriptOutOfRange);
    EXPECT_EQ(Printer.PaperSize(), PaperForm);
}

TEST_F(PdfPrinterTest, WritesTheDocumentWithItsTitleOnTheChosenPaper) {
    struct Case {
        std::int16_t Paper;
        std::int16_t Orientation;
        const char* PageSize;
    };
    for (const Case& each :
         {Case{cups::PaperA4, 1, "595 x 842 pts (A4)"}, Case{cups::PaperA4, 2, "842 x 595 pts (A4)"},
          Case{cups::PaperA5, 1, "420 x 595 pts"}, Case{cups::PaperLetter, 1, "612 x 792 pts (letter)"},
          Case{cups::PaperLegal, 2, "1008 x 612 pts"}}) {
        Printer.Assign(0);
        Printer.SetPaperSize(each.Paper);
        Printer.SetOrientation(each.Orientation);
        PrintOneLine();
        EXPECT_EQ(pdf::Info(Path, "Page size").substr(0, std::string(each.PageSize).size()), each.PageSize);
        EXPECT_EQ(pdf::Info(Path, "Title"), "Proef");
        EXPECT_EQ(pdf::Info(Path, "Creator"), "Drukkeuring");
        EXPECT_EQ(pdf::Info(Path, "Pages"), "1");
        ASSERT_EQ(pdf::Words(Path).size(), 1U);
        EXPECT_NEAR(pdf::Words(Path)[0].Left, 567 / 1440.0 * 25.4, 0.01);
    }
}

TEST_F(PdfPrinterTest, AsksForTheFileAtTheFirstOutputAndProposesTheTitle) {
    Printer.SetDocumentTitle("Acceptgiroformulieren voor de drukkeuring");
    EXPECT_TRUE(Proposed.empty());
    Printer.Page().MeasureText("x", Tahoma9);
    EXPECT_TRUE(Proposed.empty());
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().DrawText(0, 900, "y", Tahoma9);
    Printer.Page().NewPage();
    Printer.Page().EndDocument();
    ASSERT_EQ(Proposed.size(), 1U);
    EXPECT_EQ(Proposed[0].toStdString(), "Acceptgiroformulieren voor de drukkeuring.pdf");
    EXPECT_EQ(pdf::Info(Path, "Pages"), "2");
}

TEST_F(PdfPrinterTest, MakesNothingOfADocumentWithoutOutput) {
    Printer.Page().EndDocument();
    EXPECT_TRUE(Proposed.empty());
    EXPECT_FALSE(QFile::exists(Path));
}

TEST_F(PdfPrinterTest, LeavesACancelledDocumentAloneToItsEndAndAsksForTheNext) {
    const QString path = std::exchange(Path, QString());
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().DrawLine(0, 0, 100, 100, 0);
    Printer.Page().NewPage();
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().EndDocument();
    EXPECT_EQ(Proposed.size(), 1U);
    EXPECT_TRUE(Told.empty());
    EXPECT_TRUE(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
    Path = path;
    PrintOneLine();
    EXPECT_EQ(Proposed.size(), 2U);
    EXPECT_EQ(pdf::Info(Path, "Pages"), "1");
}

TEST_F(PdfPrinterTest, TellsOnceThatAFileCannotBeWritten) {
    Path = Folder.filePath("no/such/folder/uit.pdf");
    EXPECT_THROW(Printer.Page().DrawText(0, 0, "x", Tahoma9), base::RuntimeError);
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().NewPage();
    Printer.Page().EndDocument();
    ASSERT_EQ(Told.size(), 1U);
    EXPECT_NE(Told[0].find("Het bestand kon niet worden geschreven."), std::string::npos);
    EXPECT_NE(Told[0].find("uit.pdf"), std::string::npos);
    EXPECT_EQ(Proposed.size(), 1U);
}

TEST_F(PdfPrinterTest, LeavesTheOldFileWhereTheDiskIsFull) {
    QFile old(Path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("oud");
    old.close();
    {
        const FileLimit limit(2000);
        for (int page = 0; page < 50; ++page) {
            Printer.Page().DrawText(0, 0, "Een pagina vol", Tahoma9);
            Printer.Page().NewPage();
        }
        EXPECT_THROW(Printer.Page().EndDocument(), base::RuntimeError);
    }
    ASSERT_EQ(Told.size(), 1U);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll().toStdString(), "oud");
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"uit.pdf"});
}

// A batch may have tens of thousands of forms to go.
TEST_F(PdfPrinterTest, TellsAFullDiskAtTheNextPage) {
    const FileLimit limit(2000);
    int pages = 0;
    const auto print = [&] {
        for (; pages < 2000; ++pages) {
            Printer.Page().DrawText(0, 0, "Een pagina vol", Tahoma9);
            Printer.Page().NewPage();
        }
    };
    EXPECT_THROW(print(), base::RuntimeError);
    EXPECT_LT(pages, 500) << "the first 64 KB wait in memory";
    const std::vector<std::string> once = {"Het bestand kon niet worden geschreven.\n" + Path.toStdString() +
                                           "\n" + qt_error_string(EFBIG).toStdString()};
    EXPECT_EQ(Told, once);
    EXPECT_NO_THROW(print());
    EXPECT_NO_THROW(Printer.Page().EndDocument());
    EXPECT_EQ(Told, once);
    EXPECT_EQ(Proposed.size(), 1U);
    EXPECT_TRUE(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

// Also where no more than the last bytes find no place, which are written when the document ends.
TEST_F(PdfPrinterTest, HandsOverNoDocumentThatIsCutOff) {
    PrintOneLine();
    const qint64 size = QFileInfo(Path).size();
    for (const qint64 room : {size - 1, size - 100, size / 2, qint64{1}}) {
        QFile old(Path);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("oud");
        old.close();
        Told.clear();
        {
            const FileLimit limit(static_cast<rlim_t>(room));
            EXPECT_THROW(PrintOneLine(), base::RuntimeError) << room;
        }
        EXPECT_EQ(Told.size(), 1U) << room;
        ASSERT_TRUE(old.open(QIODevice::ReadOnly));
        EXPECT_TRUE(old.readAll() == "oud") << room;
        EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"uit.pdf"});
    }
}

TEST_F(PdfPrinterTest, LeavesAFileThatAppearsMeanwhile) {
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    QFile other(Path);
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("van een ander");
    other.close();
    EXPECT_THROW(Printer.Page().EndDocument(), base::RuntimeError);
    EXPECT_EQ(Told.size(), 1U);
    ASSERT_TRUE(other.open(QIODevice::ReadOnly));
    EXPECT_TRUE(other.readAll() == "van een ander");
}

TEST_F(PdfPrinterTest, ShowsNoFileBeforeTheDocumentIsComplete) {
    Printer.Page().DrawText(0, 0, "x", Tahoma9);
    Printer.Page().NewPage();
    EXPECT_FALSE(QFile::exists(Path));
    Printer.Page().EndDocument();
    EXPECT_TRUE(QFile::exists(Path));
}

TEST_F(PdfPrinterTest, LeavesNothingOfADocumentThatNeverEnds) {
    {
        QtPrinter printer(Printers, [](const std::string&) {});
        printer.Page().DrawText(0, 0, "x", Tahoma9);
    }
    EXPECT_TRUE(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST_F(PdfPrinterTest, KeepsAJobOnItsPrinterWhenAnotherIsAssigned) {
    Printer.Page().DrawText(567, 0, "x", Tahoma9);
    Printer.Assign(0);
    Printer.Page().DrawText(567, 600, "y", Tahoma9);
    Printer.Page().EndDocument();
    EXPECT_EQ(pdf::Text(Path), "x\ny\n\f");
}

TEST_F(PdfPrinterTest, ANewTitleBeginsANewDocumentThoughTheOldOneWasNeverEnded) {
    const QString path = std::exchange(Path, Folder.filePath("oud.pdf"));
    Printer.Page().DrawText(567, 0, "oud", Tahoma9);
    Printer.Page().NewPage();
    Path = path;
    PrintOneLine();
    EXPECT_EQ(Proposed.size(), 2U);
    EXPECT_EQ(pdf::Text(Path), "Regel\n\f");
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"uit.pdf"});
    EXPECT_FALSE(Printer.IsPrinting());
    EXPECT_TRUE(Told.empty());
}

TEST_F(PdfPrinterTest, AssigningTakesStoredDefaultsAndTheOwnFontAfresh) {
    Printer.SetOrientation(2);
    Printer.SetPaperSize(cups::PaperA5);
    Printer.Drawing.Font = Tahoma9;
    Printer.Drawing.CurrentX = 7;
    Printer.Assign(0);
    EXPECT_EQ(Printer.Orientation(), 1);
    EXPECT_EQ(Printer.PaperSize(), PaperForm);
    EXPECT_EQ(Printer.Drawing.CurrentX, 0);
    EXPECT_EQ(Printer.Drawing.Font.Size, 8);
    Printers.Queue(0).WriteSettings({cups::Landscape, cups::PaperLegal, cups::BinAutomatic, 1});
    Printer.Assign(0);
    EXPECT_EQ(Printer.Orientation(), 2);
    EXPECT_EQ(Printer.PaperSize(), cups::PaperLegal);
    EXPECT_EQ(Printer.Copies(), 1);
}

TEST_F(PdfPrinterTest, ReadsDamagedSettingsAsFarAsTheyGo) {
    QDir().mkpath(QFileInfo(SettingsFile()).absolutePath());
    QFile file(SettingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("paper=11\nDest\nDest PDF-bestand2 paper=9\n");
    file.write(QByteArray(3, '\0'));
    file.write("\nDest PDF-bestand paper=5 bin orientation=7 orientation=99999999999 = x\n");
    file.write(QByteArray(100'000, 'x'));
    file.close();
    EXPECT_EQ(PdfPrinter(AskForPdfFile, SettingsFile()).ReadSettings(),
              (cups::QueueSettings{cups::Portrait, cups::PaperLegal, cups::BinAutomatic, 1}));
}

TEST_F(PdfPrinterTest, FindsItsSettingsWhereTheEnvironmentNamesNoHome) {
    QDir(Folder.path()).mkpath(".config/drukkeuring");
    QFile file(Folder.filePath(".config/drukkeuring/pdf-bestand.conf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Dest PDF-bestand paper=5\n");
    file.close();
    const QByteArray home = qgetenv("HOME");
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    QByteArray known = QFile::encodeName(Folder.path());
    machinesHome = known.data();
    qputenv("HOME", "");
    qputenv("XDG_CONFIG_HOME", "");
    EXPECT_EQ(PdfPrinter().ReadSettings().PaperId, cups::PaperLegal);
    qputenv("HOME", home);
    qputenv("XDG_CONFIG_HOME", config);
    machinesHome = nullptr;
}

TEST_F(PdfPrinterTest, KeepsWhatIsSetAsLongAsItLivesAndWritesNoFile) {
    PdfPrinter printer(AskForPdfFile, SettingsFile());
    const cups::QueueSettings before = printer.ReadSettings();
    printer.WriteSettings({cups::Landscape, cups::PaperA5, cups::BinAutomatic, 1});
    EXPECT_EQ(printer.ReadSettings(),
              (cups::QueueSettings{cups::Landscape, cups::PaperA5, cups::BinAutomatic, 1}));
    EXPECT_EQ(PdfPrinter(AskForPdfFile, SettingsFile()).ReadSettings(), before);
    printer.WriteSettings(before);
    EXPECT_EQ(printer.ReadSettings(), before);
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(SettingsFile()).absolutePath()));
}

TEST_F(PdfPrinterTest, LeavesTheUsersOwnSettingsByteForByte) {
    constexpr const char* odd = "# van mij\ndest PDF-bestand   paper=5  x=1";
    QDir().mkpath(QFileInfo(SettingsFile()).absolutePath());
    QFile file(SettingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(odd);
    file.close();
    PdfPrinter printer(AskForPdfFile, SettingsFile());
    EXPECT_EQ(printer.ReadSettings().PaperId, cups::PaperLegal);
    printer.WriteSettings({cups::Portrait, cups::PaperA4, cups::BinAutomatic, 1});
    EXPECT_EQ(printer.ReadSettings().PaperId, cups::PaperA4);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), odd);
}

TEST_F(PdfPrinterTest, FollowsTheFileWhereNothingWasSet) {
    QDir().mkpath(QFileInfo(SettingsFile()).absolutePath());
    PdfPrinter printer(AskForPdfFile, SettingsFile());
    printer.WriteSettings({cups::Landscape, PaperForm, cups::BinAutomatic, 1});
    QFile file(SettingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Dest PDF-bestand paper=5\n");
    file.close();
    EXPECT_EQ(printer.ReadSettings(),
              (cups::QueueSettings{cups::Landscape, cups::PaperLegal, cups::BinAutomatic, 1}));
}

TEST_F(PdfPrinterTest, TellsThatItsSettingsCannotBeRead) {
    PdfPrinter printer(AskForPdfFile, SettingsFile());
    EXPECT_EQ(printer.Trouble(), "");
    QDir().mkpath(SettingsFile());
    EXPECT_EQ(printer.Trouble(), "pdf.conf is niet te lezen");
    printer.WriteSettings({cups::Landscape, cups::PaperA5, cups::BinAutomatic, 1});
    EXPECT_EQ(printer.ReadSettings().PaperId, cups::PaperA5);
}

TEST(FileNameForTitleTest, IsAPlainFileName) {
    EXPECT_EQ(FileNameForTitle("Namenlijst"), "Namenlijst.pdf");
    EXPECT_EQ(FileNameForTitle("a/b\\c:d*e?f\"g<h>i|j"), "a-b-c-d-e-f-g-h-i-j.pdf");
    EXPECT_EQ(FileNameForTitle("../../etc/passwd"), "-..-etc-passwd.pdf");
    EXPECT_EQ(FileNameForTitle(std::string("a\0b", 3)), "a-b.pdf");
    EXPECT_EQ(FileNameForTitle(" "), "Document.pdf");
    EXPECT_EQ(FileNameForTitle(""), "Document.pdf");
    EXPECT_EQ(FileNameForTitle(std::string(5000, 'x')).size(), 204);
    for (const char* letter : {"\xC3\xAB", "\xE2\x82\xAC", "\xF0\x9F\x96\xA8"}) {
        QString title;
        for (int i = 0; i < 100; ++i) {
            title += QString::fromUtf8(letter);
        }
        const QByteArray bytes = FileNameForTitle(title.toStdString()).toUtf8();
        EXPECT_LE(bytes.size(), 204);
        EXPECT_GT(bytes.size(), 198);
        EXPECT_FALSE(bytes.contains('?')); // no half of a letter
    }
}

/// Answers the file dialog that the step opens.
std::optional<QString> AskAndAnswer(const QString& proposed,
                                    const std::function<void(QFileDialog&)>& answer) {
    QTimer::singleShot(0, [&answer] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        answer(*dialog);
    });
    return AskForPdfFile(proposed);
}

TEST(AskForPdfFileTest, ProposesTheNameAndAddsTheEnding) {
    const QTemporaryDir folder;
    const std::optional<QString> path = AskAndAnswer("Namenlijst.pdf", [&folder](QFileDialog& dialog) {
        EXPECT_EQ(QFileInfo(dialog.selectedFiles().value(0)).fileName(), "Namenlijst.pdf");
        EXPECT_EQ(dialog.windowTitle(), "Opslaan als PDF-bestand");
        dialog.setDirectory(folder.path());
        dialog.selectFile("eigen naam");
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(path, folder.filePath("eigen naam.pdf"));
}

TEST(AskForPdfFileTest, GivesNothingWhenItIsCancelled) {
    EXPECT_EQ(AskAndAnswer("x.pdf", [](QFileDialog& dialog) { dialog.reject(); }), std::nullopt);
}

// Typed without its ending, as a desktop's own dialog would ask for the wrong name.
TEST(AskForPdfFileTest, HasTheUserConfirmToReplaceAFile) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("oud.pdf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        QString question;
        const std::optional<QString> path = AskAndAnswer("x.pdf", [&](QFileDialog& dialog) {
            dialog.setDirectory(folder.path());
            dialog.selectFile("oud");
            QTimer::singleShot(0, [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                ASSERT_NE(box, nullptr);
                question = box->text();
                QTimer::singleShot(0, &dialog, &QDialog::reject); // the dialog that comes again after a "No"
                box->button(answer)->click();
            });
            static_cast<QDialog&>(dialog).accept();
        });
        EXPECT_EQ(question, "Het bestand oud.pdf bestaat al.\nWilt u het vervangen?");
        if (answer == QMessageBox::Yes) {
            EXPECT_EQ(path, file.fileName());
        } else {
            EXPECT_EQ(path, std::nullopt);
        }
    }
}

} // namespace
} // namespace desktop::qt
