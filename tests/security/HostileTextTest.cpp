// Texts that would do harm if anything took them for more than texts: as the title of a document, and as the
// name and the wording of a printer.

#include <optional>
#include <string>
#include <vector>

#include <QDir>
#include <QTemporaryDir>
#include <QTextDocument>
#include <gtest/gtest.h>

#include "desktop/cups/UserDefaults.h"
#include "desktop/qt/PdfPrinter.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtText.h"
#include "print/pdf/PdfReader.h"
#include "unit/desktop/qt/printing/PrintServer.h"

namespace desktop::qt {
namespace {

const std::vector<std::string> HostileTexts = {
    "../../../../tmp/elders",
    "/etc/passwd",
    "..",
    "\"; touch gekraakt; \"",
    "'$(touch gekraakt)`touch gekraakt`'",
    "regel 1\nregel 2\r\n\tregel 3",
    "titel) /OpenAction << /JS (app.alert(1)) >> (",
    "titel\\) \\777 %PDF <</Type/Catalog>>",
    "-o raw --help",
    "<img src=\"/etc/hostname\"><b>vet</b>",
    "%s%n%d {0} ${HOME} ~root",
    "\xE2\x80\xAEomgekeerd \xF0\x9F\x92\xA3",
    std::string("nul\0erachter", 12),
    std::string("\xFF\xC3(", 3),
    std::string(3000, 'x'),
};

class HostileTitleTest : public testing::TestWithParam<std::string> {};

TEST_P(HostileTitleTest, NamesAFileInTheChosenFolder) {
    const QString name = FileNameForTitle(GetParam());
    EXPECT_TRUE(name.endsWith(".pdf"));
    EXPECT_GT(name.size(), 4);
    EXPECT_FALSE(name.startsWith(u'.'));
    EXPECT_LT(QFile::encodeName(name).size(), 255);
    for (const QChar c : name) {
        EXPECT_TRUE(c.category() != QChar::Other_Control && c != u'/' && c != u'\\' && c != u'"');
    }
    const QTemporaryDir folder;
    EXPECT_EQ(QFileInfo(folder.filePath(name)).absolutePath(), folder.path());
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
}

TEST_P(HostileTitleTest, IsATextOfThePdfAndNothingElse) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("uit.pdf");
    QtPrinters printers(std::make_unique<PdfPrinter>([&path](const QString&) { return QString(path); },
                                                     folder.filePath("pdf.conf")),
                        [] { return cups::FoundQueues{}; });
    QtPrinter printer(printers, [](const std::string& text) { FAIL() << text; });
    printer.SetDocumentTitle(GetParam());
    printer.Page().DrawText(567, 567, "Regel", {"Tahoma", 9, false});
    printer.Page().EndDocument();
    EXPECT_EQ(pdf::Text(path), "Regel\n\f");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"uit.pdf"});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_FALSE(content.contains("/OpenAction"));
    EXPECT_FALSE(content.contains("/JS"));
    EXPECT_EQ(content.count("/Catalog"), 1);
}

TEST_P(HostileTitleTest, IsShownAsItIsWrittenWhenThePointerRests) {
    const QString text = ToQString(GetParam());
    const QString shown = PlainToolTip(text);
    if (Qt::mightBeRichText(shown)) {
        EXPECT_FALSE(shown.contains("<img"));
        EXPECT_EQ(shown.count(u'<'), 1); // of the paragraph that holds it
    } else {
        EXPECT_EQ(shown, text);
    }
}

TEST_P(HostileTitleTest, GoesToTheQueueAsATitle) {
    const PrintServer server;
    if (!server.IsUp()) {
        GTEST_SKIP() << "no print server can be started here";
    }
    QtPrinters printers;
    QtPrinter printer(printers, [](const std::string& text) { FAIL() << text; });
    printer.SetDocumentTitle(GetParam());
    printer.Page().DrawText(567, 567, "Regel", {"Tahoma", 9, false});
    printer.Page().EndDocument();
    const std::optional<ArrivedJob> job = server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Copies, "1");
    EXPECT_EQ(pdf::Text(job->File), "Regel\n\f");
    EXPECT_FALSE(QFile::exists("gekraakt"));
    EXPECT_FALSE(QFile::exists(server.Folder() + "/gekraakt"));
}

class HostileNameTest : public testing::TestWithParam<std::string> {};

// A server may name a queue as it likes; it is no key to what the user has set for another.
TEST_P(HostileNameTest, HasNoOptionsOfAnotherQueue) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("lpoptions");
    const QByteArray before = "Dest Kantoor InputSlot=Lade1\nDefault Archief/1 a=b\n";
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(before);
    file.close();
    const cups::UserDefaults defaults(path.toStdString(), {});
    EXPECT_TRUE(defaults.Options(GetParam()).empty());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"lpoptions"});
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileNameTest, testing::ValuesIn(HostileTexts),
                         [](const auto& text) { return "Number" + std::to_string(text.index); });

INSTANTIATE_TEST_SUITE_P(Texts, HostileTitleTest, testing::ValuesIn(HostileTexts),
                         [](const auto& text) { return "Number" + std::to_string(text.index); });

} // namespace
} // namespace desktop::qt
