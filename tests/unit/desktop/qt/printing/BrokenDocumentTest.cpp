// Documents that a printer refuses on their way: part of a batch is worse than none.
#include <cerrno>
#include <functional>
#include <new>
#include <utility>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "desktop/qt/PdfPrinter.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "unit/desktop/qt/printing/TestFonts.h"

namespace desktop::qt {
namespace {

/// A queue whose documents go to a file, and what became of them.
struct Spool {
    int Begun = 0;
    int Finished = 0;
    bool RefusesStart = false;
    bool RefusesEnd = false;
    bool LacksMemory = false; ///< for the next bytes alone
    QString File;
};

class SpoolJob final : public cups::PrintJob {
  public:
    explicit SpoolJob(Spool& spool) : spool_(spool), file_(spool.File) {
        EXPECT_TRUE(file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    }
    int Write(std::string_view bytes) override {
        if (std::exchange(spool_.LacksMemory, false)) {
            throw std::bad_alloc();
        }
        const auto size = static_cast<qint64>(bytes.size());
        return file_.write(bytes.data(), size) == size ? 0 : ENOSPC;
    }
    std::string Loss(int error) const override { return error == ENOMEM ? "Geen geheugen." : ""; }
    void Finish() override {
        if (spool_.RefusesEnd) {
            throw base::RuntimeError(base::ErrorPrinter, "Geen antwoord.");
        }
        ++spool_.Finished;
    }

  private:
    Spool& spool_;
    QFile file_;
};

class SpoolQueue final : public cups::PrintQueue {
  public:
    explicit SpoolQueue(Spool& spool) : spool_(spool) {}
    std::string Name() override { return "Laser"; }
    std::string Port() override { return "USB"; }
    std::string Comment() override { return ""; }
    std::string Driver() override { return ""; }
    bool Reachable() override { return true; }
    std::uint32_t Status() override { return 0; }
    const std::vector<cups::Paper>& Papers() override { return papers_; }
    const std::vector<cups::Bin>& Bins() override { return bins_; }
    cups::QueueSettings ReadSettings() override { return {}; }
    void WriteSettings(const cups::QueueSettings&) override {}
    std::unique_ptr<cups::PrintJob> BeginJob(const std::string&, const cups::Paper&,
                                             const cups::Bin*) override {
        ++spool_.Begun;
        if (spool_.RefusesStart) {
            throw base::RuntimeError(base::ErrorPrinter, "Geen antwoord.");
        }
        return std::make_unique<SpoolJob>(spool_);
    }

  private:
    Spool& spool_;
    std::vector<cups::Paper> papers_;
    std::vector<cups::Bin> bins_;
};

class BrokenDocumentTest : public testing::Test {
  protected:
    BrokenDocumentTest() { queue.File = folder.filePath("spool"); }

    /// A document of some pages, of which each step that fails is given up as a run does; how many failed.
    int Print(
        int pages, const std::function<void(int page)>& before = [](int) {}) {
        int failed = 0;
        const auto step = [&](const std::function<void(machine::Canvas&)>& draw) {
            try {
                draw(printer.Page());
            } catch (const base::RuntimeError&) {
                ++failed;
            }
        };
        printer.SetDocumentTitle("Proef");
        for (int page = 1; page <= pages; ++page) {
            before(page);
            step([](machine::Canvas& canvas) { canvas.DrawText(567, 567, "Regel", Tahoma9); });
            step([](machine::Canvas& canvas) { canvas.DrawLine(0, 0, 567, 567, 0); });
            step([](machine::Canvas& canvas) { canvas.NewPage(); });
        }
        step([](machine::Canvas& canvas) { canvas.EndDocument(); });
        return failed;
    }
    void ExpectGivenUpWholeAndToldOnce(const std::string& text) {
        EXPECT_EQ(queue.Begun, 1);
        EXPECT_EQ(queue.Finished, 0);
        EXPECT_EQ(told, std::vector<std::string>{text});
        EXPECT_FALSE(printer.IsPrinting());
    }

    QTemporaryDir folder;
    Spool queue;
    std::vector<std::string> told;
    QtPrinters printers{std::make_unique<PdfPrinter>(AskForPdfFile, folder.filePath("pdf.conf")), [this] {
                            cups::FoundQueues found;
                            found.Queues.push_back(std::make_unique<SpoolQueue>(queue));
                            found.Default = 0;
                            found.Answered = true;
                            return found;
                        }};
    QtPrinter printer{printers, [this](const std::string& text) { told.push_back(text); }};
};

TEST_F(BrokenDocumentTest, AWholeOneIsHandedOver) {
    EXPECT_EQ(Print(3), 0);
    EXPECT_EQ(queue.Finished, 1);
    EXPECT_TRUE(told.empty());
}

TEST_F(BrokenDocumentTest, RefusedAtItsStart) {
    queue.RefusesStart = true;
    EXPECT_EQ(Print(3), 1);
    ExpectGivenUpWholeAndToldOnce("Geen antwoord.");
}

TEST_F(BrokenDocumentTest, RefusedAtAPageBreak) {
    queue.File = "/dev/full"; // what is drawn on the first page finds no room
    EXPECT_EQ(Print(3), 1);
    ExpectGivenUpWholeAndToldOnce("De volgende pagina kon niet worden begonnen.");
}

TEST_F(BrokenDocumentTest, RefusedAtItsEnd) {
    queue.RefusesEnd = true;
    EXPECT_EQ(Print(3), 1);
    ExpectGivenUpWholeAndToldOnce("Geen antwoord.");
}

TEST_F(BrokenDocumentTest, LosesBytesForLackOfMemory) {
    EXPECT_EQ(Print(3, [this](int page) { queue.LacksMemory = page == 1; }), 1);
    ExpectGivenUpWholeAndToldOnce("Geen geheugen.");
}

TEST_F(BrokenDocumentTest, LosesItsLastBytesForLackOfMemory) {
    printer.Page().DrawText(567, 567, "Regel", Tahoma9);
    queue.LacksMemory = true;
    EXPECT_THROW(printer.Page().EndDocument(), base::RuntimeError);
    ExpectGivenUpWholeAndToldOnce("Geen geheugen.");
}

TEST_F(BrokenDocumentTest, TheNextOneIsANewOne) {
    queue.File = "/dev/full";
    Print(2);
    queue.File = folder.filePath("spool");
    EXPECT_EQ(Print(2), 0);
    EXPECT_EQ(queue.Begun, 2);
    EXPECT_EQ(queue.Finished, 1);
    EXPECT_EQ(told.size(), 1U);
}

} // namespace
} // namespace desktop::qt
