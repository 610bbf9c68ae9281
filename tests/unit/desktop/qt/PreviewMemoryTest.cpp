// What a preview costs in memory, and that nothing of it stays.
#include <memory>
#include <vector>

#include <QGuiApplication>
#include <QPixmapCache>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/modMsgHookProc.h"
#include "support/Allocations.h"
#include "unit/desktop/qt/PreviewFixture.h"

namespace {

constexpr int MostPages = 40;
constexpr int LinesOfPage = 80;
constexpr std::size_t MostBytes = 8'000'000;

class PreviewMemoryTest : public PreviewTest {
  protected:
    // Fonts and the toolkit's own stores are filled at the first use, and kept.
    PreviewMemoryTest() {
        for (int round = 0; round < 3; ++round) {
            Show(2, [this] { window::Click(Widget("Toolbar(5)")); });
        }
        window::Settle();
    }

    std::vector<std::weak_ptr<const machine::PageBitmap>> Pages() {
        std::vector<std::weak_ptr<const machine::PageBitmap>> pages;
        for (const auto& [number, holder] : Ghost().ThisPage) {
            pages.emplace_back(holder.Picture);
        }
        return pages;
    }

    /// A page without room for more.
    void FillPage() {
        composition::PrintSurface& surface = *state.Surface;
        for (int line = 0; line < LinesOfPage; ++line) {
            for (int column = 0; column < 5; ++column) {
                surface.SetCurrentX(column * 2200);
                surface.Print("regel van twintig ");
            }
            surface.PrintLine("");
            surface.Line(0, line * 190, 11000, line * 190, 0);
        }
    }

    void ComposeFull(int pages) {
        preview.OpenPreview(0);
        for (int page = 1; page <= pages; ++page) {
            if (page > 1) {
                state.Surface->Newpage();
            }
            FillPage();
        }
        state.Surface->EndDoc();
    }

    /// A preview of so many full pages costs at most 8 MB, and gives everything back.
    void ExpectEightMegabytes(int pages) {
        const std::size_t before = support::AllocatedBytes();
        ComposeFull(pages);
        const std::size_t cost = support::AllocatedBytes() - before;
        RecordProperty("bytes", std::to_string(cost));
        EXPECT_LE(cost, MostBytes);
        EXPECT_GE(cost, std::size_t{MostPages} * LinesOfPage * 90) << "not all of it was counted";
        const auto held = Pages();
        EXPECT_EQ(held.size(), std::size_t{MostPages} + 1);

        preview.OpenPreview(1);
        window::Settle();
        for (const auto& page : held) {
            EXPECT_TRUE(page.expired());
        }
        EXPECT_LT(support::AllocatedBytes(), before + 100000);
    }
};

/// Counts how often timers of the flat buttons tick as long as it lives.
class ButtonTicks : public QObject {
  public:
    ButtonTicks() { qApp->installEventFilter(this); }

    int Count() const { return count_; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* timer = qobject_cast<const QTimer*>(watched);
        count_ += event->type() == QEvent::Timer && timer != nullptr && timer->interval() == 5 ? 1 : 0;
        return false;
    }

  private:
    int count_ = 0;
};

TEST_F(PreviewMemoryTest, FortyFullPagesCostAtMostEightMegabytesAndClosingGivesThemBack) {
    ExpectEightMegabytes(MostPages);
}

TEST_F(PreviewMemoryTest, ALongerDocumentCostsNoMore) {
    window::MessageBoxes boxes;
    ExpectEightMegabytes(84);
    EXPECT_EQ(boxes.All().size(), 1U);
}

TEST_F(PreviewMemoryTest, WhatIsDrawnOverPageFortyOneIsNotKept) {
    window::MessageBoxes boxes;
    preview.OpenPreview(0);
    for (int page = 1; page <= 42; ++page) {
        state.Surface->Newpage();
    }
    const std::size_t before = support::AllocatedBytes();
    for (int page = 43; page <= 1000; ++page) {
        FillPage();
        state.Surface->Newpage();
    }
    EXPECT_LT(support::AllocatedBytes(), before + 100000);
    state.Surface->EndDoc();
    preview.OpenPreview(1);
}

TEST_F(PreviewMemoryTest, TurningAndScrollingShowTheSamePagesAndMakeNoPicture) {
    Show(MostPages, [this] {
        const support::LargeAllocations large(100000);
        for (int page = 1; page <= MostPages; ++page) {
            EXPECT_EQ(Form().pictCurrentPage.Page(),
                      Ghost().ThisPage.at(static_cast<std::int16_t>(page)).Picture);
            window::Key(Qt::Key_End);
            window::Key(Qt::Key_PageDown);
        }
        window::Click(Widget("Toolbar(3)"));
        Wheel({0, -120});
        EXPECT_EQ(large.Count(), 0);
    });
}

TEST_F(PreviewMemoryTest, ALargeAllocationIsNoticed) {
    const support::LargeAllocations large(1000000);
    const QImage image(1000, 1000, QImage::Format_RGB16);
    EXPECT_EQ(large.Count(), 1);
}

TEST_F(PreviewMemoryTest, AThousandPreviewsLeaveNothingBehind) {
    if (qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ||
        qEnvironmentVariableIsSet("DRUKKEURING_TEST_POINTS")) {
        GTEST_SKIP() << "once, on an ordinary screen, is enough";
    }
    memory.printers.Queue(0).Sheet = {2480, 3508}; // a sheet of A6, as the size does not matter here
    memory.printers.Queue(0).Printable = {2280, 3308};
    // The toolkit keeps pictures of buttons and bars for a while, up to a limit.
    const int cacheLimit = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(0);
    const auto widgets = QApplication::allWidgets().size();
    const auto windows = QGuiApplication::allWindows().size();
    const std::size_t procedures = desktop.Windows().Count();
    std::vector<std::weak_ptr<const machine::PageBitmap>> held;
    std::size_t bytes = 0;
    for (int i = 0; i < 1000; ++i) {
        if (i == 100) {
            bytes = support::AllocatedBytes();
        }
        Show(1, [&] {
            const auto pages = Pages();
            held.insert(held.end(), pages.begin(), pages.end());
            Form().cmdDown.Timer.SetEnabled(true); // left on, as by a pointer that rests on the button
            Wheel({0, -120});
        });
        std::erase_if(held, [](const auto& page) { return page.expired(); });
    }
    window::Settle();
    EXPECT_TRUE(held.empty());
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
    EXPECT_EQ(desktop.Windows().Count(), procedures);
    EXPECT_EQ(forms::modMsgHookProc::SlotsInUse(), 0);
    EXPECT_TRUE(session.OpenForms().empty());
    const ButtonTicks ticks;
    QTest::qWait(30);
    EXPECT_EQ(ticks.Count(), 0);
    EXPECT_LT(support::AllocatedBytes(), bytes + 50000) << "less than 60 bytes a preview";
    QPixmapCache::setCacheLimit(cacheLimit);
}

TEST_F(PreviewMemoryTest, ATimerThatRunsIsNoticed) {
    QTimer timer;
    timer.start(5);
    const ButtonTicks ticks;
    EXPECT_TRUE(window::WaitFor([&] { return ticks.Count() > 0; }));
}

} // namespace
