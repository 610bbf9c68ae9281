#include <new>

#include "PreviewFixture.h"

namespace preview {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* TooMany =
    "Er zijn meer dan 40 pagina's gevonden, in het afdrukvoorbeeld worden maximaal 40 pagina's getoond.";

class GhostTest : public PreviewTest {
  protected:
    GhostTest() {
        InstallPrinter();
        Open();
    }
    ~GhostTest() override { Close(); }

    std::vector<std::int16_t> PagesHeld() {
        std::vector<std::int16_t> pages;
        for (const auto& [number, holder] : Ghost().ThisPage) {
            pages.push_back(number);
        }
        return pages;
    }
};

TEST_F(GhostTest, LoadingLeavesItReadyForPageOne) {
    EXPECT_EQ(Ghost().Tag, "1");
    EXPECT_EQ(Ghost().Page(), 1);
    EXPECT_EQ(Ghost().iDisplayPage, 1);
    EXPECT_EQ(Ghost().BackColor, 0xFFFFFF);
    EXPECT_THAT(PagesHeld(), ElementsAre(0, 1));
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(0).Picture), IsEmpty());
    EXPECT_EQ(Ghost().ThisPage.at(1).Picture, nullptr);
}

TEST_F(GhostTest, LoadingReadsTheSheet) {
    EXPECT_EQ(Ghost().lPageWidth, 11904);
    EXPECT_EQ(Ghost().lPageHeight, 16838);
    EXPECT_EQ(Ghost().lMarginLeft, 240);
    EXPECT_EQ(Ghost().lMarginTop, 240);
    EXPECT_EQ(Ghost().lMaxTrackX, 11904);
    EXPECT_EQ(Ghost().lMaxTrackY, 16838);
}

TEST_F(GhostTest, ThePageIsAsWideAsThePrintableAreaAndAsHighAsTheSheet) {
    EXPECT_EQ(Ghost().Width(), 11424);
    EXPECT_EQ(Ghost().Height(), 16838) << "7016 dots of 600 to the inch, in whole twips";
    EXPECT_EQ(Ghost().Top(), 0);
    EXPECT_EQ(Ghost().ThisPage.at(0).Picture->Width(), 11424);
    EXPECT_EQ(Ghost().ThisPage.at(0).Picture->Height(), Ghost().Height());
    EXPECT_EQ(Ghost().ThisPage.at(1).Width, 11424);
}

TEST_F(GhostTest, LoadingYieldsTwiceAndRecordsNoPage) {
    Close();
    Kinds();
    const int yields = memory.desktop.Yields();
    Open();
    EXPECT_EQ(memory.desktop.Yields() - yields, 3) << "one of them opens the printer";
    EXPECT_THAT(Kinds(), testing::Not(testing::Contains("page")));
}

TEST_F(GhostTest, ADocumentWithoutAPageBreakIsOnePage) {
    Compose(1);
    EXPECT_EQ(Ghost().Tag, "1");
    EXPECT_EQ(Ghost().Page(), 1);
    EXPECT_EQ(Window().iTotalPages, 1);
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 1"));
    EXPECT_THAT(Pressable(), ElementsAre(1, 8));
    EXPECT_FALSE(Window().cmdUp.Enabled());
    EXPECT_FALSE(Window().cmdDown.Enabled());
}

TEST_F(GhostTest, AnEmptyDocumentIsOneBlankPage) {
    Surface().EndDoc();
    EXPECT_EQ(Window().iTotalPages, 1);
    EXPECT_THAT(OnScreen(), IsEmpty());
}

TEST_F(GhostTest, EachPageKeepsWhatWasDrawnOnIt) {
    Compose(3);
    EXPECT_THAT(PagesHeld(), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(0).Picture), IsEmpty());
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(1).Picture), ElementsAre("pagina 1"));
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(2).Picture), ElementsAre("pagina 2"));
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(3).Picture), ElementsAre("pagina 3"));
    EXPECT_EQ(Ghost().Tag, "3");
}

TEST_F(GhostTest, APageBreakYieldsTwiceAndPutsTheCursorBack) {
    Surface().SetCurrentX(100);
    Surface().SetCurrentY(200);
    const int yields = memory.desktop.Yields();
    Surface().Newpage();
    EXPECT_EQ(memory.desktop.Yields() - yields, 2);
    EXPECT_EQ(Surface().CurrentX(), 0);
    EXPECT_EQ(Surface().CurrentY(), 0);
    EXPECT_EQ(Ghost().Tag, "2");
}

TEST_F(GhostTest, OutOfMemoryInAPageBreakCostsThatPageAndNoPreview) {
    Surface().PrintLine("pagina 1");
    memory.desktop.OnYield = [this] {
        memory.desktop.OnYield = nullptr;
        throw std::bad_alloc();
    };
    EXPECT_NO_THROW(Surface().Newpage());
    EXPECT_EQ(Ghost().Tag, "2") << "what stands before the failure is not undone";
    EXPECT_EQ(Ghost().Page(), 1);
    EXPECT_TRUE(memory.desktop.Messages().empty());
    Surface().Newpage();
    Surface().PrintLine("pagina 2");
    Surface().EndDoc();
    EXPECT_EQ(Window().iTotalPages, 3);
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 1"));
}

TEST_F(GhostTest, TheEndOfTheDocumentDoesNotYield) {
    const int yields = memory.desktop.Yields();
    Surface().EndDoc();
    EXPECT_EQ(memory.desktop.Yields(), yields);
}

TEST_F(GhostTest, FontAndWeightOutliveAPageBreak) {
    Surface().SetFont("OCR-B");
    Surface().SetFontSize(10);
    Surface().SetFontBold(true);
    Surface().Newpage();
    EXPECT_EQ(Surface().Font(), "OCR-B");
    EXPECT_EQ(Surface().FontSize(), 10);
    Kinds();
    Surface().Print("een");
    EXPECT_EQ(std::get<bool>(events.at(0).Fields.back().Value), true);
}

TEST_F(GhostTest, DrawingIsRecordedByPageFromOne) {
    Kinds();
    Compose(2);
    EXPECT_THAT(Kinds(), ElementsAre("text", "page", "text", "end", "mouse", "mouse"));
}

TEST_F(GhostTest, FortyPagesAreAllShownWithoutAMessage) {
    Compose(40);
    EXPECT_EQ(Ghost().Tag, "40");
    EXPECT_EQ(Window().iTotalPages, 40);
    EXPECT_THAT(memory.desktop.Messages(), IsEmpty());
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(40).Picture), ElementsAre("pagina 40"));
    EXPECT_EQ(PagesHeld().size(), 41U);
}

TEST_F(GhostTest, OfFortyOnePagesTheLastIsDroppedWithAMessage) {
    for (int page = 1; page < 41; ++page) {
        Surface().Newpage();
    }
    EXPECT_EQ(Ghost().Tag, "41");
    EXPECT_EQ(Ghost().Page(), 41);
    Surface().EndDoc();
    EXPECT_THAT(
        memory.desktop.Messages(),
        ElementsAre(memory::ShownMessage{TooMany, forms::MessageIcon::Information, state.MessageTitle}));
    EXPECT_EQ(Ghost().Tag, "40");
    EXPECT_EQ(Ghost().Page(), 40);
    EXPECT_EQ(Window().iTotalPages, 40);
    EXPECT_EQ(PagesHeld().back(), 40);
}

TEST_F(GhostTest, BeyondPageFortyOneABreakIsSwallowedAndTheCursorStays) {
    for (int page = 1; page < 41; ++page) {
        Surface().Newpage();
    }
    Surface().Print("41");
    Kinds();
    const double x = Surface().CurrentX();
    ASSERT_GT(x, 0);
    for (int page = 42; page <= 50; ++page) {
        Surface().Newpage();
        EXPECT_EQ(Ghost().Page(), 41);
        EXPECT_EQ(Ghost().Tag, "41");
        EXPECT_EQ(Surface().CurrentX(), x);
    }
    EXPECT_THAT(Kinds(), IsEmpty()) << "no page, and no yield";
    Surface().EndDoc();
    EXPECT_EQ(Ghost().Page(), 40);
    EXPECT_EQ(memory.desktop.Messages().size(), 1U);
}

TEST_F(GhostTest, FiftyPagesOfferForty) {
    Compose(50);
    EXPECT_EQ(Window().iTotalPages, 40);
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(40).Picture), ElementsAre("pagina 40"));
    EXPECT_EQ(PagesHeld().size(), 41U);
}

TEST_F(GhostTest, ClearPagesKeepsTheBlankPageAlone) {
    Compose(3);
    Ghost().ClearPages();
    EXPECT_THAT(PagesHeld(), ElementsAre(0));
    EXPECT_EQ(Ghost().Tag, "3");
    EXPECT_EQ(Ghost().Page(), 3);
    Ghost().ClearPages();
    EXPECT_THAT(PagesHeld(), ElementsAre(0));
}

TEST_F(GhostTest, ClearPagesAfterTooManyPagesDoesNotTripOverTheDroppedOne) {
    Compose(45);
    Ghost().ClearPages();
    EXPECT_THAT(PagesHeld(), ElementsAre(0));
}

TEST_F(GhostTest, ThePageOnScreenIsTheOneThatIsHeld) {
    Compose(2);
    EXPECT_EQ(Window().pictCurrentPage.Page(), Ghost().ThisPage.at(1).Picture);
    Ghost().DisplayOnScreen(2);
    EXPECT_EQ(Window().pictCurrentPage.Page(), Ghost().ThisPage.at(2).Picture);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(GhostTest, DisplayVolgendeAndVorigeCountByThemselvesWithoutBounds) {
    Compose(3);
    Ghost().DisplayVolgende();
    EXPECT_EQ(Ghost().iDisplayPage, 2);
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 2"));
    Ghost().DisplayVolgende();
    EXPECT_THROW(Ghost().DisplayVolgende(), base::RuntimeError);
    EXPECT_EQ(Ghost().iDisplayPage, 4);
    Ghost().DisplayVorige();
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 3"));
    Ghost().DisplayVorige();
    Ghost().DisplayVorige();
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 1"));
    Ghost().DisplayVorige();
    EXPECT_THAT(OnScreen(), IsEmpty()) << "the blank page";
    EXPECT_THROW(Ghost().DisplayVorige(), base::RuntimeError);
}

TEST_F(GhostTest, APageOutOfRangeIsAnError) {
    Compose(1);
    for (const int page : {2, 41, -1, 32767, -32768}) {
        EXPECT_THROW(Ghost().DisplayOnScreen(static_cast<std::int16_t>(page)), base::RuntimeError);
    }
}

TEST_F(GhostTest, ItsWindowMayGrowToTheSizeOfTheSheet) {
    machine::MINMAXINFO screen{};
    screen.ptMaxSize = {1, 2};
    screen.ptMaxTrackSize = {1280, 720};
    const machine::MINMAXINFO bounds = memory.desktop.Windows().AskBounds(Ghost().hWnd(), screen);
    EXPECT_EQ(bounds.ptMinTrackSize.x, 200);
    EXPECT_EQ(bounds.ptMinTrackSize.y, 200);
    EXPECT_EQ(bounds.ptMaxTrackSize.x, 11904);
    EXPECT_EQ(bounds.ptMaxTrackSize.y, 16838);
    EXPECT_EQ(bounds.ptMaxSize.y, 2) << "the rest stays";
    EXPECT_EQ(memory.desktop.Windows().Send(Ghost().hWnd(), 36, 0, 0), 0) << "no structure, no harm";
}

TEST_F(GhostTest, ItsWindowIsAskedForItsBoundsWhenItIsSized) {
    forms::MsgHook watcher(memory.desktop.Windows());
    int asked = 0;
    watcher.After = [&](auto&, auto&, auto& lParam) {
        ++asked;
        EXPECT_EQ(reinterpret_cast<machine::MINMAXINFO*>(lParam)->ptMaxTrackSize.y, 16838);
    };
    watcher.Hook(Ghost().hWnd(), {machine::WM_GETMINMAXINFO});
    Ghost().Resize(12000, 20000);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Ghost().Height(), 20000) << "larger than the screen, within its bounds";
    Ghost().Resize(1e9, 10);
    EXPECT_EQ(Ghost().Width(), 11904 * 15.0);
    EXPECT_EQ(Ghost().Height(), 200 * 15.0);
}

TEST_F(GhostTest, TheBoundsAreItsOnlyMessage) {
    machine::MINMAXINFO screen{};
    std::int32_t uMsg = 37;
    std::intptr_t wParam = 0;
    auto lParam = reinterpret_cast<std::intptr_t>(&screen);
    std::intptr_t retVal = 5;
    Ghost().Msg_Before(uMsg, wParam, lParam, retVal);
    EXPECT_EQ(screen.ptMaxTrackSize.x, 0);
    EXPECT_EQ(retVal, 5);
    uMsg = 36;
    Ghost().Msg_Before(uMsg, wParam, lParam, retVal);
    EXPECT_EQ(uMsg, 36) << "the window's own procedure still runs";
    EXPECT_EQ(retVal, 0);
}

TEST_F(GhostTest, AFailedCaptureEndsThePageBreakSilently) {
    Surface().Print("een");
    memory.recorder.Fail("Image");
    Surface().Newpage();
    EXPECT_EQ(Ghost().Tag, "2") << "the tally has gone up already";
    EXPECT_EQ(Ghost().Page(), 1);
    EXPECT_GT(Surface().CurrentX(), 0) << "the page was not wiped";
    EXPECT_THAT(memory.desktop.Messages(), IsEmpty());
    EXPECT_FALSE(Ghost().AutoRedraw);
    const double x = Surface().CurrentX();
    Surface().Print("twee");
    Surface().Line(0, 0, 100, 100, 0);
    EXPECT_GT(Surface().CurrentX(), x) << "it is measured all the same";
    Surface().EndDoc();
    EXPECT_TRUE(Ghost().AutoRedraw);
    EXPECT_EQ(Window().iTotalPages, 2) << "one more than is held";
    EXPECT_THAT(OnScreen(), ElementsAre("een")) << "what was drawn behind the failure is lost";
    EXPECT_THROW(Ghost().DisplayOnScreen(2), base::RuntimeError);
}

TEST_F(GhostTest, TheNextPageBreakThatSucceedsLetsDrawingThroughAgain) {
    Surface().Print("een");
    memory.recorder.Fail("Image");
    Surface().Newpage();
    Surface().Print("twee");
    Surface().Newpage();
    EXPECT_TRUE(Ghost().AutoRedraw);
    Surface().Print("drie");
    Surface().EndDoc();
    EXPECT_EQ(Ghost().Tag, "3");
    EXPECT_EQ(Ghost().Page(), 2);
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(1).Picture), ElementsAre("een"));
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(2).Picture), ElementsAre("drie"));
}

TEST_F(GhostTest, AFailureAtTheEndLeavesThePageClosedToDrawing) {
    memory.recorder.Fail("Image");
    EXPECT_THROW(Surface().EndDoc(), base::RuntimeError);
    EXPECT_FALSE(Ghost().AutoRedraw);
}

TEST_F(GhostTest, ThePageIsClosedToDrawingWhileItIsKept) {
    std::vector<bool> open;
    memory.desktop.OnYield = [&] { open.push_back(Ghost().AutoRedraw); };
    Surface().Newpage();
    memory.desktop.OnYield = nullptr;
    EXPECT_THAT(open, ElementsAre(false, false));
    EXPECT_TRUE(Ghost().AutoRedraw);
}

TEST_F(GhostTest, AFailedMeasureLeavesThePageButNotItsSize) {
    memory.recorder.Fail("ScaleWidth");
    Surface().Newpage();
    EXPECT_EQ(Ghost().Page(), 2);
    EXPECT_EQ(Ghost().ThisPage.at(2).Width, 0);
    Surface().Print("twee");
    Surface().EndDoc();
    EXPECT_THAT(TextsOn(Ghost().ThisPage.at(2).Picture), ElementsAre("twee"));
}

TEST_F(GhostTest, APaperSizeIsRefused) {
    EXPECT_THROW(Surface().SetPaperSize(5), base::RuntimeError);
}

TEST_F(PreviewTest, AMarginOfAHalfTwipGoesToTheEvenNumber) {
    memory::PrintQueue queue;
    queue.Name = "Odd";
    queue.Dpi = 1440;
    queue.Sheet = {11905, 16837};
    queue.Printable = {11900, 16830};
    memory.InstallPrinter(queue);
    Open();
    EXPECT_EQ(Ghost().lMarginLeft, 2);
    EXPECT_EQ(Ghost().lMarginTop, 4);
    Close();
}

TEST_F(PreviewTest, ALandscapeSheetTurnsThePage) {
    memory::PrintQueue queue;
    queue.Name = "Wide";
    queue.Defaults.Orientation = 2;
    memory.InstallPrinter(queue);
    Open();
    EXPECT_EQ(Ghost().lPageHeight, 11904);
    EXPECT_EQ(Ghost().ThisPage.at(0).Picture->Width(), 16358.4);
    Close();
}

} // namespace
} // namespace preview
