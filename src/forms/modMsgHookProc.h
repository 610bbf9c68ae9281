#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <unordered_set>
#include <vector>

#include "machine/WindowProcedures.h"

namespace forms {

class MsgHook;

/// The table behind MsgHook. A window procedure receives no data of its own, so each of the first nine slots
/// has an entry procedure that knows the slot's number; all further slots share OverflowProc, which looks the
/// window up. One thread, one table for the whole process.
namespace modMsgHookProc {

/// Messages are told apart in two steps: most fall into no marked bucket, and cost one look at a bit.
inline constexpr std::uint32_t BucketCount = 257;

struct HookEntry {
    machine::WindowProcedures* Procedures = nullptr;
    machine::WindowHandle hWnd = 0;           ///< kept after release
    MsgHook* lOwner = nullptr;                ///< not owned; nullptr: the slot is free
    machine::ProcedureAddress lOldProc = 0;   ///< the procedure that was replaced
    machine::ProcedureAddress lEntryProc = 0; ///< the one that replaces it
    std::int32_t lFilterCount = 0;            ///< messages asked for; 0 is all of them
    std::bitset<BucketCount> blnBucket;
    std::unordered_set<std::int32_t> colExact;
};

/// Errors of Hook: the table cannot grow while a message is being dispatched.
inline constexpr int ErrorTableLocked = 10;

/// Takes the lowest free slot for this window and owner, and answers its number, from 1 on. No messages at
/// all stands for every message. ErrorDuplicateKey for a message that is listed twice, or a second slot above
/// the ninth for one window; ErrorTableLocked if the table would have to grow inside a handler. A failure
/// leaves nothing behind.
std::int32_t HookWindow(machine::WindowProcedures& procedures, MsgHook& lOwner, machine::WindowHandle hWnd,
                        const std::vector<std::int32_t>& messages);

/// Gives the window its procedure back and frees the slot. Slot 0 is nothing.
void ReleaseSlot(std::int32_t slot);

/// The work of every entry procedure: reports the message to the slot's owner if it is watched, and passes it
/// on.
std::intptr_t HookDispatch(std::int32_t slot, machine::WindowHandle hWnd, std::int32_t uMsg,
                           std::intptr_t wParam, std::intptr_t lParam);

/// Serves every slot above 9. A window that no slot knows gets 0 and no processing at all.
std::intptr_t WINDOW_CALL OverflowProc(machine::WindowHandle hWnd, std::int32_t uMsg, std::intptr_t wParam,
                                       std::intptr_t lParam);

/// An owner goes away: dispatches that are still running report nothing more to it.
void ForgetOwner(const MsgHook& lOwner);

/// Size of the table, 0 before its first use.
std::int32_t SlotCount();
/// A slot of the table, 1 to SlotCount().
const HookEntry& Slot(std::int32_t slot);
/// Number of slots that have an owner.
std::int32_t SlotsInUse();
/// The slot above 9 that serves this window, or 0.
std::int32_t OverflowSlotOf(machine::WindowHandle hWnd);

} // namespace modMsgHookProc
} // namespace forms
