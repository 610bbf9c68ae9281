#include <algorithm>
#include <cstdlib>

#include "HookFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MsgHookTableTest : public HookTest {
  protected:
    /// Hooks on `count` new windows, all for the wheel.
    void HookWindows(int count) {
        for (int i = 0; i < count; ++i) {
            windows.push_back(NewWindow());
            hooks.push_back(std::make_unique<forms::MsgHook>(table));
            hooks.back()->Before = [this, n = hooks.size()](auto&, auto&, auto&, auto&) {
                told.push_back(n);
            };
            hooks.back()->Hook(windows.back()->Handle(), {Wheel});
        }
    }
    void SendToAll() {
        for (const auto& window : windows) {
            EXPECT_EQ(table.Send(window->Handle(), Wheel, 0, 0), 100 + Wheel);
        }
    }
    machine::WindowHandle HandleOf(std::size_t n) const { return windows[n - 1]->Handle(); }

    std::vector<std::unique_ptr<Window>> windows;
    std::vector<std::unique_ptr<forms::MsgHook>> hooks;
    std::vector<std::size_t> told;
};

TEST_F(MsgHookTableTest, SlotsAreTakenFromTheLowestOn) {
    HookWindows(3);
    EXPECT_EQ(hooks[0]->lSlot(), 1);
    EXPECT_EQ(hooks[1]->lSlot(), 2);
    EXPECT_EQ(hooks[2]->lSlot(), 3);
    hooks[1]->Unhook();
    forms::MsgHook next(table);
    next.Hook(HandleOf(2));
    EXPECT_EQ(next.lSlot(), 2);
}

TEST_F(MsgHookTableTest, NineWindowsHaveAProcedureEach) {
    HookWindows(9);
    EXPECT_GE(hook::SlotCount(), 9);
    for (std::int32_t slot = 1; slot <= 9; ++slot) {
        const hook::HookEntry& entry = hook::Slot(slot);
        EXPECT_NE(entry.lEntryProc, machine::AddressOf(hook::OverflowProc));
        EXPECT_EQ(entry.lOldProc, machine::AddressOf(OwnProcedure));
        EXPECT_EQ(entry.lOwner, hooks[static_cast<std::size_t>(slot - 1)].get());
        EXPECT_EQ(entry.lFilterCount, 1);
    }
    SendToAll();
    EXPECT_THAT(told, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST_F(MsgHookTableTest, TheTenthWindowGoesThroughTheOverflowProcedure) {
    HookWindows(10);
    EXPECT_EQ(hooks[9]->lSlot(), 10);
    EXPECT_EQ(hook::Slot(10).lEntryProc, machine::AddressOf(hook::OverflowProc));
    EXPECT_EQ(hook::OverflowSlotOf(HandleOf(10)), 10);
    EXPECT_EQ(hook::OverflowSlotOf(HandleOf(9)), 0);
    SendToAll();
    EXPECT_THAT(told, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
    hooks[9]->Unhook();
    EXPECT_EQ(hook::OverflowSlotOf(HandleOf(10)), 0);
    EXPECT_TRUE(HasOwnProcedure(*windows[9]));
}

/// Exit status of a process in which this many windows are hooked at once: the slots that its table then has.
[[noreturn]] void ExitWithSlots(int hooked) {
    forms::WindowProcedureTable table;
    std::vector<std::unique_ptr<forms::WindowProcedureTable::Window>> windows;
    std::vector<std::unique_ptr<forms::MsgHook>> hooks;
    for (int i = 1; i <= hooked; ++i) {
        windows.push_back(std::make_unique<forms::WindowProcedureTable::Window>(
            table, static_cast<machine::WindowHandle>(i)));
        hooks.push_back(std::make_unique<forms::MsgHook>(table));
        hooks.back()->Hook(windows.back()->Handle(), {Wheel});
    }
    std::_Exit(hook::SlotCount());
}

// The table is the process's own, and every other test may have made it grow.
TEST(MsgHookTableDeathTest, InAFreshProcessItGrowsFromNineSlotsToEighteenAndThirtySix) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ExitWithSlots(1), testing::ExitedWithCode(9), "");
    EXPECT_EXIT(ExitWithSlots(9), testing::ExitedWithCode(9), "");
    EXPECT_EXIT(ExitWithSlots(10), testing::ExitedWithCode(18), "");
    EXPECT_EXIT(ExitWithSlots(18), testing::ExitedWithCode(18), "");
    EXPECT_EXIT(ExitWithSlots(19), testing::ExitedWithCode(36), "");
}

TEST_F(MsgHookTableTest, NineteenHooksGrowTheTableToThirtySixSlots) {
    const std::int32_t grown = std::max(hook::SlotCount(), 36); // by an earlier test, if at all
    HookWindows(19);
    EXPECT_EQ(hook::SlotCount(), grown);
    SendToAll();
    EXPECT_EQ(told.size(), 19U);
    EXPECT_EQ(told.back(), 19U);
    hooks.clear();
    EXPECT_EQ(hook::SlotCount(), grown) << "it never shrinks";
    EXPECT_EQ(hook::SlotsInUse(), 0);
}

TEST_F(MsgHookTableTest, AnOverflowProcedureWithoutASlotDoesNothingAtAll) {
    HookWindows(10);
    const auto stranger = NewWindow();
    EXPECT_EQ(hook::OverflowProc(stranger->Handle(), Wheel, 0, 0), 0);
    EXPECT_THAT(Handled(), IsEmpty());
}

TEST_F(MsgHookTableTest, OneWindowHasRoomForOneSlotAboveTheNinth) {
    HookWindows(10);
    forms::MsgHook second(table);
    EXPECT_EQ(ErrorOf([&] { second.Hook(HandleOf(10)); }), base::ErrorDuplicateKey);
    EXPECT_EQ(second.lSlot(), 0);
    SendToAll();
    EXPECT_EQ(told.back(), 10U);
}

TEST_F(MsgHookTableTest, AFailedHookAboveTheNinthSlotLeavesTheWindowFree) {
    HookWindows(9);
    const auto window = NewWindow();
    forms::MsgHook tenth(table);
    EXPECT_EQ(ErrorOf([&] { tenth.Hook(window->Handle(), {1, 1}); }), base::ErrorDuplicateKey);
    EXPECT_EQ(hook::OverflowSlotOf(window->Handle()), 0);
    tenth.Hook(window->Handle(), {1});
    EXPECT_EQ(tenth.lSlot(), 10);
}

TEST_F(MsgHookTableTest, AReleasedSlotKeepsItsWindowAndProceduresAndIsTakenAgain) {
    HookWindows(10);
    hooks[9]->Unhook();
    const hook::HookEntry& entry = hook::Slot(10);
    EXPECT_EQ(entry.lOwner, nullptr);
    EXPECT_EQ(entry.hWnd, HandleOf(10));
    EXPECT_EQ(entry.lOldProc, machine::AddressOf(OwnProcedure));
    EXPECT_EQ(entry.lEntryProc, machine::AddressOf(hook::OverflowProc));
    EXPECT_EQ(entry.lFilterCount, 1);
    EXPECT_TRUE(entry.blnBucket.none());
    EXPECT_TRUE(entry.colExact.empty());
    hooks[9]->Hook(HandleOf(10), {Wheel});
    EXPECT_EQ(hooks[9]->lSlot(), 10);
}

TEST_F(MsgHookTableTest, TheTableCannotGrowInsideAHandler) {
    HookWindows(static_cast<int>(std::max(hook::SlotCount(), 9)));
    const std::int32_t full = hook::SlotCount();
    ASSERT_EQ(hook::SlotsInUse(), full);
    const auto window = NewWindow();
    forms::MsgHook late(table);
    int error = 0;
    hooks[0]->Before = [&](auto&, auto&, auto&, auto&) {
        error = ErrorOf([&] { late.Hook(window->Handle(), {Wheel}); });
    };
    table.Send(HandleOf(1), Wheel, 0, 0);
    EXPECT_EQ(error, hook::ErrorTableLocked);
    EXPECT_EQ(hook::SlotCount(), full);
    EXPECT_TRUE(HasOwnProcedure(*window));

    late.Hook(window->Handle(), {Wheel});
    EXPECT_EQ(late.lSlot(), full + 1);
    EXPECT_EQ(hook::SlotCount(), 2 * full);
}

TEST_F(MsgHookTableTest, AFreeSlotCanBeTakenInsideAHandler) {
    HookWindows(2);
    forms::MsgHook late(table);
    const auto window = NewWindow();
    hooks[0]->After = [&](auto&, auto&, auto&) { late.Hook(window->Handle(), {Wheel}); };
    table.Send(HandleOf(1), Wheel, 0, 0);
    EXPECT_EQ(late.lSlot(), 3);
}

TEST_F(MsgHookTableTest, ASlotThatDoesNotExistIsAnError) {
    HookWindows(1);
    hook::ReleaseSlot(0);
    EXPECT_EQ(ErrorOf([] { hook::ReleaseSlot(-1); }), base::ErrorSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([] { hook::HookDispatch(hook::SlotCount() + 1, 1, 1, 0, 0); }),
              base::ErrorSubscriptOutOfRange);
}

TEST_F(MsgHookTableTest, AThousandHooksLeaveNothingBehind) {
    const std::size_t standing = table.Count();
    for (int i = 0; i < 1000; ++i) {
        const auto window = NewWindow();
        forms::MsgHook passing(table);
        passing.Hook(window->Handle(), {Wheel});
        table.Send(window->Handle(), Wheel, 0, 0);
    }
    EXPECT_EQ(table.Count(), standing);
    EXPECT_EQ(hook::SlotsInUse(), 0);
}

} // namespace
