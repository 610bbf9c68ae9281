#include <new>

#include "HookFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t Bounds = machine::WM_GETMINMAXINFO;
constexpr std::int32_t SameBucket = Bounds + 257;

std::intptr_t WINDOW_CALL OtherProcedure(machine::WindowHandle /*hWnd*/, std::int32_t /*uMsg*/,
                                         std::intptr_t /*wParam*/, std::intptr_t /*lParam*/) {
    return 7;
}

class MsgHookTest : public HookTest {
  protected:
    MsgHookTest() {
        watcher.Before = [this](auto& uMsg, auto&, auto&, auto&) { before.push_back(uMsg); };
        watcher.After = [this](auto& uMsg, auto&, auto&) { after.push_back(uMsg); };
    }

    std::unique_ptr<Window> window = NewWindow();
    forms::MsgHook watcher{table};
    std::vector<std::int32_t> before;
    std::vector<std::int32_t> after;
};

TEST_F(MsgHookTest, ReportsAWatchedMessageBeforeAndAfterTheWindow) {
    std::vector<std::string> order;
    watcher.Before = [&](auto&, auto&, auto&, auto& retVal) {
        EXPECT_EQ(retVal, 0);
        EXPECT_THAT(Handled(), IsEmpty());
        order.push_back("before");
    };
    watcher.After = [&](auto&, auto&, auto&) {
        EXPECT_THAT(Handled(), ElementsAre(Message{Wheel, 7, 8}));
        order.push_back("after");
    };
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 7, 8), 100 + Wheel);
    EXPECT_THAT(order, ElementsAre("before", "after"));
}

TEST_F(MsgHookTest, PassesOtherMessagesOnUnreported) {
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), 15, 1, 2), 115);
    EXPECT_THAT(before, IsEmpty());
    EXPECT_THAT(after, IsEmpty());
    EXPECT_THAT(Handled(), ElementsAre(Message{15, 1, 2}));
}

TEST_F(MsgHookTest, AMessageOfTheSameBucketIsAnotherMessage) {
    watcher.Hook(window->Handle(), {Bounds});
    EXPECT_EQ(table.Send(window->Handle(), SameBucket, 0, 0), 100 + SameBucket);
    EXPECT_THAT(before, IsEmpty());
    table.Send(window->Handle(), Bounds, 0, 0);
    EXPECT_THAT(before, ElementsAre(Bounds));
}

TEST_F(MsgHookTest, BothMessagesOfABucketCanBeWatched) {
    watcher.Hook(window->Handle(), {Bounds, SameBucket});
    table.Send(window->Handle(), Bounds, 0, 0);
    table.Send(window->Handle(), SameBucket, 0, 0);
    table.Send(window->Handle(), SameBucket + 257, 0, 0);
    EXPECT_THAT(before, ElementsAre(Bounds, SameBucket));
}

TEST_F(MsgHookTest, NoMessagesStandForAllOfThem) {
    watcher.Hook(window->Handle());
    for (const std::int32_t message : {1, 36, 257, 522, 0x7fff, -1}) {
        table.Send(window->Handle(), message, 0, 0);
    }
    EXPECT_THAT(before, ElementsAre(1, 36, 257, 522, 0x7fff, -1));
    EXPECT_EQ(after, before);
}

TEST_F(MsgHookTest, MessageZeroIsReportedAndGoesNoFurther) {
    watcher.Hook(window->Handle());
    EXPECT_EQ(table.Send(window->Handle(), 0, 0, 0), 0);
    EXPECT_THAT(before, ElementsAre(0));
    EXPECT_THAT(after, IsEmpty());
    EXPECT_THAT(Handled(), IsEmpty());
}

TEST_F(MsgHookTest, ANegativeMessageNumberCanBeWatched) {
    watcher.Hook(window->Handle(), {-5});
    table.Send(window->Handle(), -5, 0, 0);
    table.Send(window->Handle(), 5, 0, 0);
    EXPECT_THAT(before, ElementsAre(-5));
}

TEST_F(MsgHookTest, AHandlerThatClearsTheMessageKeepsItFromTheWindow) {
    watcher.Before = [](auto& uMsg, auto&, auto&, auto& retVal) {
        uMsg = 0;
        retVal = 4711;
    };
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 4711);
    EXPECT_THAT(Handled(), IsEmpty());
    EXPECT_THAT(after, IsEmpty());
}

TEST_F(MsgHookTest, TheWindowGetsWhatTheHandlerMadeOfTheMessage) {
    Message seenAfter;
    watcher.Before = [](auto& uMsg, auto& wParam, auto& lParam, auto& retVal) {
        uMsg = 99;
        wParam = 5;
        lParam = 6;
        retVal = 4711; // counts only for a message that is kept from the window
    };
    watcher.After = [&](auto& uMsg, auto& wParam, auto& lParam) { seenAfter = {uMsg, wParam, lParam}; };
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 1, 2), 199);
    EXPECT_THAT(Handled(), ElementsAre(Message{99, 5, 6}));
    EXPECT_EQ(seenAfter, (Message{99, 5, 6}));
}

TEST_F(MsgHookTest, ArgumentsKeepTheFullPointerWidth) {
    const auto wide = static_cast<std::intptr_t>(std::uintptr_t{1} << (sizeof(std::uintptr_t) * 8 - 2));
    watcher.Before = [wide](auto& uMsg, auto& wParam, auto&, auto& retVal) {
        EXPECT_EQ(wParam, wide);
        uMsg = 0;
        retVal = wide + 1;
    };
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, wide, 0), wide + 1);
}

TEST_F(MsgHookTest, WithoutHandlersTheMessageJustPasses) {
    forms::MsgHook silent(table);
    silent.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 100 + Wheel);
}

TEST_F(MsgHookTest, UnhookGivesTheWindowItsProcedureBack) {
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_NE(watcher.lSlot(), 0);
    EXPECT_FALSE(HasOwnProcedure(*window));
    watcher.Unhook();
    EXPECT_EQ(watcher.lSlot(), 0);
    EXPECT_TRUE(HasOwnProcedure(*window));
    table.Send(window->Handle(), Wheel, 0, 0);
    EXPECT_THAT(before, IsEmpty());
}

TEST_F(MsgHookTest, UnhookWithoutAHookDoesNothing) {
    watcher.Unhook();
    watcher.Unhook();
    EXPECT_EQ(watcher.lSlot(), 0);
}

TEST_F(MsgHookTest, AHookThatGoesAwayLetsTheWindowGo) {
    {
        forms::MsgHook passing(table);
        passing.Hook(window->Handle());
        EXPECT_FALSE(HasOwnProcedure(*window));
    }
    EXPECT_TRUE(HasOwnProcedure(*window));
}

TEST_F(MsgHookTest, ASecondHookLetsTheFirstWindowGoAndMayTakeItsSlot) {
    const auto other = NewWindow();
    watcher.Hook(window->Handle(), {Wheel});
    const std::int32_t slot = watcher.lSlot();
    watcher.Hook(other->Handle(), {Bounds});
    EXPECT_EQ(watcher.lSlot(), slot);
    EXPECT_TRUE(HasOwnProcedure(*window));
    table.Send(window->Handle(), Bounds, 0, 0);
    EXPECT_THAT(before, IsEmpty());
    table.Send(other->Handle(), Wheel, 0, 0);
    EXPECT_THAT(before, IsEmpty()) << "the messages of the first hook are forgotten";
    table.Send(other->Handle(), Bounds, 0, 0);
    EXPECT_THAT(before, ElementsAre(Bounds));
}

TEST_F(MsgHookTest, AMessageListedTwiceIsAnErrorAndLeavesNothingHooked) {
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(ErrorOf([&] {
                  watcher.Hook(window->Handle(), {Bounds, Wheel, Bounds});
              }),
              base::ErrorDuplicateKey);
    EXPECT_EQ(watcher.lSlot(), 0);
    EXPECT_TRUE(HasOwnProcedure(*window));
    watcher.Hook(window->Handle(), {Wheel});
    table.Send(window->Handle(), Wheel, 0, 0);
    EXPECT_THAT(before, ElementsAre(Wheel));
}

TEST_F(MsgHookTest, TwoHooksOnOneWindowBothSeeTheMessage) {
    std::vector<std::string> order;
    forms::MsgHook outer(table);
    outer.Before = [&](auto&, auto&, auto&, auto&) { order.push_back("outer"); };
    watcher.Before = [&](auto&, auto&, auto&, auto&) { order.push_back("inner"); };
    watcher.Hook(window->Handle(), {Wheel});
    outer.Hook(window->Handle(), {Wheel});
    table.Send(window->Handle(), Wheel, 0, 0);
    EXPECT_THAT(order, ElementsAre("outer", "inner"));
    outer.Unhook();
    table.Send(window->Handle(), Wheel, 0, 0);
    EXPECT_THAT(order, ElementsAre("outer", "inner", "inner"));
}

TEST_F(MsgHookTest, TwoHooksOnOneWindowMayGoInTheWrongOrder) {
    forms::MsgHook outer(table);
    watcher.Hook(window->Handle());
    outer.Hook(window->Handle(), {Wheel});
    watcher.Unhook();
    outer.Unhook(); // puts back the procedure of a slot that is free by now
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 100 + Wheel);
    EXPECT_THAT(before, IsEmpty());
}

TEST_F(MsgHookTest, AMessageWithinAMessageComesThroughTheSameHook) {
    watcher.Before = [&](auto& uMsg, auto& wParam, auto&, auto&) {
        before.push_back(uMsg);
        if (wParam > 0) {
            EXPECT_EQ(table.Send(window->Handle(), Wheel, wParam - 1, 0), 100 + Wheel);
        }
    };
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 3, 0), 100 + Wheel);
    EXPECT_EQ(before.size(), 4U);
    EXPECT_THAT(Handled(), ElementsAre(Message{Wheel, 0, 0}, Message{Wheel, 1, 0}, Message{Wheel, 2, 0},
                                       Message{Wheel, 3, 0}));
}

TEST_F(MsgHookTest, AHandlerMayUnhookAndIsStillToldWhatFollows) {
    watcher.Before = [this](auto&, auto&, auto&, auto&) { watcher.Unhook(); };
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 100 + Wheel);
    EXPECT_THAT(after, ElementsAre(Wheel));
    EXPECT_TRUE(HasOwnProcedure(*window));
}

// The slot is another window's by the time that the message goes on.
TEST_F(MsgHookTest, AHandlerMayHookAnotherWindowAndTheMessageStillMeetsTheProcedureThatItReplaced) {
    const auto other = NewWindow();
    table.SetWindowLongA(other->Handle(), machine::GWL_WNDPROC, machine::AddressOf(OtherProcedure));
    ASSERT_EQ(table.Send(other->Handle(), Wheel, 0, 0), 7);
    watcher.Before = [&](auto&, auto&, auto&, auto&) { watcher.Hook(other->Handle(), {Wheel}); };
    watcher.Hook(window->Handle(), {Wheel});
    const std::int32_t slot = watcher.lSlot();
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 1, 2), 100 + Wheel);
    EXPECT_THAT(Handled(), ElementsAre(Message{Wheel, 1, 2}));
    EXPECT_EQ(watcher.lSlot(), slot);
    EXPECT_EQ(hook::Slot(slot).hWnd, other->Handle());
}

TEST_F(MsgHookTest, AHookMayBeDestroyedByItsOwnHandler) {
    auto passing = std::make_unique<forms::MsgHook>(table);
    std::string told = "nothing";
    passing->Before = [&passing, &told](auto&, auto&, auto&, auto&) {
        passing.reset();
        told = "before";
    };
    passing->After = [&told](auto&, auto&, auto&) { told = "after"; };
    passing->Hook(window->Handle());
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 100 + Wheel);
    EXPECT_EQ(told, "before");
    EXPECT_TRUE(HasOwnProcedure(*window));
}

TEST_F(MsgHookTest, AFailingHandlerSurfacesAndLeavesTheTableUsable) {
    watcher.Before = [](auto&, auto&, auto&, auto&) { throw base::RuntimeError(5, "no"); };
    watcher.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(ErrorOf([&] { table.Send(window->Handle(), Wheel, 0, 0); }), 5);
    watcher.Before = nullptr;
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 100 + Wheel);
    EXPECT_THAT(after, ElementsAre(Wheel));
}

/// Procedures whose messages come from a system that lets no failure through.
class TellingProcedures final : public machine::WindowProcedures {
  public:
    explicit TellingProcedures(machine::WindowProcedures& windows) : windows_(windows) {}

    int Failures = 0;

    machine::ProcedureAddress SetWindowLongA(machine::WindowHandle hWnd, int index,
                                             machine::ProcedureAddress procedure) override {
        return windows_.SetWindowLongA(hWnd, index, procedure);
    }
    std::intptr_t CallWindowProcA(machine::ProcedureAddress procedure, machine::WindowHandle hWnd,
                                  std::int32_t uMsg, std::intptr_t wParam, std::intptr_t lParam) override {
        return windows_.CallWindowProcA(procedure, hWnd, uMsg, wParam, lParam);
    }
    void HandlerFailed() override { ++Failures; }

  private:
    machine::WindowProcedures& windows_;
};

TEST_F(MsgHookTest, AFailureThatIsToldOnTheWayLetsTheWindowHaveTheMessage) {
    TellingProcedures telling(table);
    forms::MsgHook hooked(telling);
    hooked.Before = [](auto&, auto&, auto&, auto&) { throw base::RuntimeError(5, "no"); };
    hooked.After = [](auto&, auto&, auto&) { throw std::bad_alloc(); };
    hooked.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 100 + Wheel);
    EXPECT_EQ(telling.Failures, 2);
    EXPECT_THAT(Handled(), ElementsAre(Message{Wheel, 0, 0}));
}

TEST_F(MsgHookTest, AWindowThatDoesNotExistIsNotNoticed) {
    constexpr machine::WindowHandle nobody = 5;
    watcher.Hook(nobody, {Wheel});
    EXPECT_EQ(hook::Slot(watcher.lSlot()).lOldProc, 0U);
    EXPECT_EQ(hook::HookDispatch(watcher.lSlot(), nobody, 15, 0, 0), 0);
    watcher.Unhook();
}

TEST_F(MsgHookTest, AWindowMayGoWhileItIsHooked) {
    watcher.Hook(window->Handle(), {Wheel});
    window.reset();
    watcher.Unhook();
    EXPECT_EQ(watcher.lSlot(), 0);
}

} // namespace
