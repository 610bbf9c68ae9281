#include "HookFixture.h"

namespace {

class WindowProcedureTableTest : public HookTest {};

TEST_F(WindowProcedureTableTest, AWindowBeginsWithAProcedureThatDoesNothing) {
    const Window window(table, 7);
    EXPECT_EQ(table.Send(7, 15, 1, 2), 0);
    EXPECT_NE(ProcedureOf(window), 0U);
}

TEST_F(WindowProcedureTableTest, AnotherIndexOrAnUnknownWindowIsRefused) {
    const auto window = NewWindow();
    EXPECT_EQ(table.SetWindowLongA(window->Handle(), -20, 1), 0U);
    EXPECT_EQ(table.SetWindowLongA(4, machine::GWL_WNDPROC, 1), 0U);
    EXPECT_TRUE(HasOwnProcedure(*window));
    EXPECT_EQ(table.Send(4, 15, 0, 0), 0);
    EXPECT_EQ(table.CallWindowProcA(0, window->Handle(), 15, 0, 0), 0);
}

TEST_F(WindowProcedureTableTest, TheWheelComesInTheHighWord) {
    const auto window = NewWindow();
    table.SendWheel(window->Handle(), 120);
    table.SendWheel(window->Handle(), -120);
    ASSERT_EQ(Handled().size(), 2U);
    EXPECT_EQ(Handled()[0].uMsg, machine::WM_MOUSEWHEEL);
    EXPECT_EQ(Handled()[0].wParam, 120 << 16);
    EXPECT_EQ(static_cast<std::uint32_t>(Handled()[1].wParam), 0xFF880000U);
}

TEST_F(WindowProcedureTableTest, BoundsAreAskedOfTheWindowAndStayWhereItHasNoOpinion) {
    const auto window = NewWindow();
    machine::MINMAXINFO screen{};
    screen.ptMaxTrackSize = {1920, 1080};
    EXPECT_EQ(table.AskBounds(window->Handle(), screen).ptMaxTrackSize.x, 1920);

    forms::MsgHook watcher(table);
    watcher.Before = [](auto&, auto&, auto& lParam, auto&) {
        reinterpret_cast<machine::MINMAXINFO*>(lParam)->ptMaxTrackSize = {11905, 16838};
    };
    watcher.Hook(window->Handle(), {machine::WM_GETMINMAXINFO});
    EXPECT_EQ(table.AskBounds(window->Handle(), screen).ptMaxTrackSize.y, 16838);
}

TEST_F(WindowProcedureTableTest, AWindowIsAsLargeAsItsBoundsLetIt) {
    using forms::WindowSize;
    const auto window = NewWindow();
    const WindowSize large{1e15, 16838.4};
    EXPECT_EQ(table.BoundedSize(window->Handle(), large).Height, 16838.4) << "it has no opinion";
    forms::MsgHook watcher(table);
    watcher.Before = [](auto&, auto&, auto& lParam, auto&) {
        auto& bounds = *reinterpret_cast<machine::MINMAXINFO*>(lParam);
        bounds.ptMinTrackSize = {200, 100};
        bounds.ptMaxTrackSize = {1000, 500};
    };
    watcher.Hook(window->Handle(), {machine::WM_GETMINMAXINFO});
    EXPECT_EQ(table.BoundedSize(window->Handle(), large), (WindowSize{15000, 7500}));
    EXPECT_EQ(table.BoundedSize(window->Handle(), {0, 2000}), (WindowSize{3000, 2000}));
}

TEST_F(WindowProcedureTableTest, AWindowThatIsGoneIsForgotten) {
    const std::size_t before = table.Count();
    {
        const auto window = NewWindow();
        EXPECT_EQ(table.Count(), before + 1);
    }
    EXPECT_EQ(table.Count(), before);
}

} // namespace
