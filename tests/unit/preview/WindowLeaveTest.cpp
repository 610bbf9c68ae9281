#include "unit/preview/WindowFixture.h"

namespace preview {
namespace {

using testing::IsEmpty;
namespace key = forms::key;

TEST_F(WindowTest, TheCloseBoxLeavesTheWishAsItWas) {
    InstallPrinter();
    Show(1, [this] { Window().UserClose(); });
    EXPECT_FALSE(state.PrintAfterPreview);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

struct WayOut {
    const char* name;
    std::function<void(frmPrintPreview&)> leave;
    bool print;
};

class LeaveTest : public PreviewTest, public testing::WithParamInterface<WayOut> {};

TEST_P(LeaveTest, EndsTheModalShowing) {
    InstallPrinter();
    Show(2, [this] {
        state.PrintAfterPreview = !GetParam().print;
        GetParam().leave(Window());
        EXPECT_FALSE(Window().Visible());
        EXPECT_EQ(Ghost().ThisPage.size(), 1U) << "the pages are let go";
    });
    EXPECT_EQ(state.PrintAfterPreview, GetParam().print);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    EXPECT_THAT(session.OpenForms(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    WaysOut, LeaveTest,
    testing::Values(
        WayOut{"ToolbarPrint", [](frmPrintPreview& f) { f.Toolbar.UserClickButton(1); }, true},
        WayOut{"ToolbarClose", [](frmPrintPreview& f) { f.Toolbar.UserClickButton(8); }, false},
        WayOut{"MenuPrint", [](frmPrintPreview& f) { f.SSActiveToolBars.UserChoose("ID_Afdrukken"); }, true},
        WayOut{"MenuClose", [](frmPrintPreview& f) { f.SSActiveToolBars.UserChoose("ID_Sluiten"); }, false},
        WayOut{"Escape", [](frmPrintPreview& f) { f.UserKey(key::Escape); }, false}),
    [](const auto& row) { return row.param.name; });

/// What a user may still do while the window's last step lets waiting messages run.
struct LateInput {
    const char* name;
    std::function<void(frmPrintPreview&)> act;
};

class LateInputTest : public PreviewTest, public testing::WithParamInterface<LateInput> {};

TEST_P(LateInputTest, ComesTooLateOnceTheUserHasChosenToPrint) {
    InstallPrinter();
    Show(2, [this] {
        bool tried = false;
        Window().VScroll.SetValue(100);
        memory.desktop.OnYield = [&] {
            tried = true;
            GetParam().act(Window());
        };
        Window().Toolbar.UserClickButton(1);
        memory.desktop.OnYield = nullptr;
        EXPECT_TRUE(tried);
        EXPECT_EQ(Window().iCurrentPage, 1);
        EXPECT_FALSE(Window().Visible());
    });
    EXPECT_TRUE(state.PrintAfterPreview);
    EXPECT_THAT(Kinds(), testing::Not(testing::Contains("error")));
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, LateInputTest,
    testing::Values(LateInput{"PageDown", [](frmPrintPreview& f) { f.UserKey(key::PageDown); }},
                    LateInput{"Escape", [](frmPrintPreview& f) { f.UserKey(key::Escape); }},
                    LateInput{"ToolbarNext", [](frmPrintPreview& f) { f.Toolbar.UserClickButton(5); }},
                    LateInput{"ToolbarClose", [](frmPrintPreview& f) { f.Toolbar.UserClickButton(8); }},
                    LateInput{"MenuClose",
                              [](frmPrintPreview& f) { f.SSActiveToolBars.UserChoose("ID_Sluiten"); }},
                    LateInput{"ArrowDown", [](frmPrintPreview& f) { f.cmdDown.UserClick(); }},
                    LateInput{"CloseBox", [](frmPrintPreview& f) { f.UserClose(); }}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace preview
