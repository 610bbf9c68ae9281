#include "forms/modMsgHookProc.h"

#include <algorithm>
#include <exception>
#include <unordered_map>

#include "base/RuntimeError.h"
#include "forms/MsgHook.h"

namespace forms::modMsgHookProc {

namespace {

constexpr std::int32_t EntryProcedures = 9;

/// A dispatch that is running, with the owner that it reports to. Nested ones form a chain.
struct Running {
    MsgHook* Owner;
    Running* Outer;
};

/// Lives from the first hook to the end of the process, and never shrinks.
std::vector<HookEntry> HookTable;
bool blnTableReady = false;
/// Slot number by window handle, for the slots above 9.
std::unordered_map<machine::WindowHandle, std::int32_t> colOverflow;
Running* running = nullptr;

HookEntry& At(std::int32_t slot) {
    if (slot < 1 || slot > SlotCount()) {
        throw base::SubscriptOutOfRange();
    }
    return HookTable[static_cast<std::size_t>(slot - 1)];
}

template <std::int32_t Number>
std::intptr_t WINDOW_CALL EntryProc(machine::WindowHandle hWnd, std::int32_t uMsg, std::intptr_t wParam,
                                    std::intptr_t lParam) {
    return HookDispatch(Number, hWnd, uMsg, wParam, lParam);
}

constexpr std::array<machine::WindowProcedure, EntryProcedures> ProcedureOfEntry = {
    EntryProc<1>, EntryProc<2>, EntryProc<3>, EntryProc<4>, EntryProc<5>,
    EntryProc<6>, EntryProc<7>, EntryProc<8>, EntryProc<9>,
};

void MakeTable() {
    HookTable.resize(ProcedureOfEntry.size());
    for (std::size_t i = 0; i < ProcedureOfEntry.size(); ++i) {
        HookTable[i].lEntryProc = machine::AddressOf(ProcedureOfEntry[i]);
    }
    blnTableReady = true;
}

std::size_t BucketOf(std::int32_t message) {
    return static_cast<std::uint32_t>(message) % BucketCount;
}

bool IsWatched(const HookEntry& entry, std::int32_t message) {
    if (entry.lFilterCount <= 0) {
        return true;
    }
    return entry.blnBucket[BucketOf(message)] && entry.colExact.contains(message);
}

[[noreturn]] void ThrowDuplicateKey() {
    throw base::RuntimeError(base::ErrorDuplicateKey,
                             "This key is already associated with an element of this collection");
}

/// Keeps the table from growing, and remembers whom the dispatch reports to.
class Dispatching {
  public:
    explicit Dispatching(MsgHook* owner) : self_{owner, running} { running = &self_; }
    ~Dispatching() { running = self_.Outer; }
    Dispatching(const Dispatching&) = delete;
    Dispatching& operator=(const Dispatching&) = delete;

    /// nullptr once the owner is gone.
    MsgHook* Owner() const { return self_.Owner; }

  private:
    Running self_;
};

std::int32_t LowestFreeSlot() {
    const auto free = std::find_if(HookTable.begin(), HookTable.end(),
                                   [](const HookEntry& entry) { return entry.lOwner == nullptr; });
    return static_cast<std::int32_t>(free - HookTable.begin()) + 1;
}

} // namespace

std::int32_t HookWindow(machine::WindowProcedures& procedures, MsgHook& lOwner, machine::WindowHandle hWnd,
                        const std::vector<std::int32_t>& messages) {
    if (!blnTableReady) {
        MakeTable();
    }
    const std::int32_t slot = LowestFreeSlot();
    if (slot > SlotCount()) {
        if (running != nullptr) {
            throw base::RuntimeError(ErrorTableLocked, "This array is fixed or temporarily locked");
        }
        HookTable.resize(HookTable.size() * 2);
    }

    std::bitset<BucketCount> buckets;
    std::unordered_set<std::int32_t> exact;
    for (const std::int32_t message : messages) {
        buckets.set(BucketOf(message));
        if (!exact.insert(message).second) {
            ThrowDuplicateKey();
        }
    }

    HookEntry& entry = At(slot);
    if (slot > EntryProcedures) {
        if (!colOverflow.emplace(hWnd, slot).second) {
            ThrowDuplicateKey();
        }
        entry.lEntryProc = machine::AddressOf(OverflowProc);
    }
    entry.Procedures = &procedures;
    entry.lFilterCount = static_cast<std::int32_t>(messages.size());
    entry.blnBucket = buckets;
    entry.colExact = std::move(exact);
    entry.hWnd = hWnd;
    entry.lOwner = &lOwner;
    entry.lOldProc = procedures.SetWindowLongA(hWnd, machine::GWL_WNDPROC, entry.lEntryProc);
    return slot;
}

std::intptr_t HookDispatch(std::int32_t slot, machine::WindowHandle hWnd, std::int32_t uMsg,
                           std::intptr_t wParam, std::intptr_t lParam) {
    const HookEntry& entry = At(slot);
    const Dispatching dispatching(entry.lOwner);
    // A handler may give the slot to another window: what this message replaces is what it met.
    const auto callReplaced = [&, procedures = entry.Procedures, lOldProc = entry.lOldProc] {
        return procedures->CallWindowProcA(lOldProc, hWnd, uMsg, wParam, lParam);
    };
    // A slot without an owner is still entered where somebody hooked the same window later and put it back.
    if (dispatching.Owner() == nullptr || !IsWatched(entry, uMsg)) {
        return callReplaced();
    }
    const auto raise = [procedures = entry.Procedures](const auto& handler) {
        try {
            handler();
        } catch (const std::exception&) {
            procedures->HandlerFailed();
        }
    };
    std::intptr_t retVal = 0;
    raise([&] { dispatching.Owner()->RaiseBefore(uMsg, wParam, lParam, retVal); });
    if (uMsg != 0) {
        retVal = callReplaced();
        if (dispatching.Owner() != nullptr) {
            raise([&] { dispatching.Owner()->RaiseAfter(uMsg, wParam, lParam); });
        }
    }
    return retVal;
}

std::intptr_t WINDOW_CALL OverflowProc(machine::WindowHandle hWnd, std::int32_t uMsg, std::intptr_t wParam,
                                       std::intptr_t lParam) {
    const std::int32_t slot = OverflowSlotOf(hWnd);
    return slot == 0 ? 0 : HookDispatch(slot, hWnd, uMsg, wParam, lParam);
}

void ReleaseSlot(std::int32_t slot) {
    if (slot == 0) {
        return;
    }
    HookEntry& entry = At(slot);
    const Dispatching lockTable(nullptr);
    entry.Procedures->SetWindowLongA(entry.hWnd, machine::GWL_WNDPROC, entry.lOldProc);
    entry.lOwner = nullptr;
    entry.blnBucket.reset();
    entry.colExact.clear();
    if (slot > EntryProcedures) {
        colOverflow.erase(entry.hWnd);
    }
}

void ForgetOwner(const MsgHook& lOwner) {
    for (Running* one = running; one != nullptr; one = one->Outer) {
        if (one->Owner == &lOwner) {
            one->Owner = nullptr;
        }
    }
}

std::int32_t SlotCount() {
    return static_cast<std::int32_t>(HookTable.size());
}

const HookEntry& Slot(std::int32_t slot) {
    return At(slot);
}

std::int32_t SlotsInUse() {
    return static_cast<std::int32_t>(std::count_if(
        HookTable.begin(), HookTable.end(), [](const HookEntry& entry) { return entry.lOwner != nullptr; }));
}

std::int32_t OverflowSlotOf(machine::WindowHandle hWnd) {
    const auto found = colOverflow.find(hWnd);
    return found == colOverflow.end() ? 0 : found->second;
}

} // namespace forms::modMsgHookProc
