// Each call of the machine fails once, at each place of each story: whatever fails, the program keeps its
// promises.
#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

#include "fault/Fault.h"
#include "fault/KnownMessages.h"
#include "fault/Machine.h"
#include "fault/Story.h"
#include "unit/printmanager/ManagerFixture.h"

namespace fault {
namespace {

using testing::IsEmpty;

/// Set by the thorough run: every call, and not one in so many.
constexpr const char* EveryCallVariable = "DRUKKEURING_EVERY_CALL";
/// Runs of a story and a kind, at most, when not every call is tried.
constexpr int FewRuns = 6;
/// The printer that a first opening loads, in all stories.
constexpr const char* FirstPrinter = "Laser";

/// Steps that have no handler for failures, by how they begin: the error ends them and goes to the desktop,
/// which tells the user.
struct WithoutHandler {
    std::string_view Step;
    std::initializer_list<std::string_view> Calls;
};

const WithoutHandler CallsWithoutHandler[] = {
    // The manager comes up as far as its load got, so that it can be closed.
    {"click frmMain.cmdPrinten", {"Printers", "Item", "DeviceName", "Copies", CallCreateWindow}},
    // They are not there.
    {"open frmPrintManagerSetup", {CallCreateWindow}},
    {"click frmMain.cmdVoorcontrole", {CallCreateWindow}},
    // The commands stay off until a document is picked again.
    {"pick frmPrintManager.lstAfdrukken", {"Printers"}},
    // The panel stays as it is.
    {"click frmPrintManager.cmdDetails", {"DeviceName"}},
    // A capture that failed was counted all the same: the last page is one that is not there.
    {"click frmPrintPreview.Toolbar(6)", {"Image", "NewPage"}},
    {"click frmPrintPreview.Toolbar(5)", {"Image", "NewPage"}},
    {"click frmPrintPreview.cmdDown", {"Image", "NewPage"}},
};

bool MayPass(const UntrappedError& error) {
    return std::any_of(
        std::begin(CallsWithoutHandler), std::end(CallsWithoutHandler), [&](const WithoutHandler& row) {
            return error.Step.starts_with(row.Step) &&
                   std::find(row.Calls.begin(), row.Calls.end(), error.Call) != row.Calls.end();
        });
}

bool SamePaperAndBin(const memory::QueueDefaults& a, const memory::QueueDefaults& b) {
    return a.PaperSize == b.PaperSize && a.DefaultSource == b.DefaultSource;
}

Outcome Played(const Story& story, Fault& fault) {
    return Machine(story, fault).Play();
}

class EveryCallTest : public testing::TestWithParam<std::tuple<std::size_t, Kind>> {
  protected:
    static void TearDownTestSuite() {
        std::cout << "stories: " << Stories().size() << ", calls that can fail in them: " << calls
                  << ", runs with a failing call: " << runs << '\n';
        for (const auto& [reason, count] : changed) {
            std::cout << "  paper or bin stays changed, " << reason << ": " << count << '\n';
        }
    }

    const Story& TheStory() const { return Stories()[std::get<0>(GetParam())]; }
    Kind TheKind() const { return std::get<1>(GetParam()); }

    printmanager::InOwnFolder folder;

  public:
    static inline int calls = 0;
    static inline int runs = 0;
    static inline std::map<std::string, int> changed;
};

/// Where paper and bin are not put back, there is a reason that the user was told of or that lies in the
/// printer.
void ExpectDefaultsBack(const Outcome& whole, const Outcome& outcome) {
    for (const auto& [printer, defaults] : outcome.Defaults) {
        const memory::QueueDefaults& before = outcome.DefaultsBefore.at(printer);
        if (SamePaperAndBin(defaults, before) || SamePaperAndBin(defaults, whole.Defaults.at(printer))) {
            continue;
        }
        const auto anyEnd = [&](bool (*is)(const ManagerEnd&)) {
            return std::any_of(outcome.Managers.begin(), outcome.Managers.end(), [&](const ManagerEnd& end) {
                const bool hadLists = !end.Restore.Paper.empty();
                return hadLists && is(end);
            });
        };
        const bool pending = anyEnd([](const ManagerEnd& end) { return end.RestorePending; });
        // What is put back is what was seen first, and a driver that did not answer shows its first entries.
        const bool seenWrong =
            anyEnd([](const ManagerEnd& end) { return end.Restore.Paper != "1" || end.Restore.Bin != "1"; });
        // Only the first printer's are put back: one that was chosen later keeps what a run has set.
        const bool laterPrinter = printer != FirstPrinter;
        // A spooler that refuses a write is not asked again.
        EXPECT_TRUE(pending || seenWrong || laterPrinter || outcome.FaultInRestore) << printer;
        const char* reason = pending        ? "still to be put back"
                             : seenWrong    ? "seen wrong"
                             : laterPrinter ? "on a printer chosen later"
                                            : "refused";
        ++EveryCallTest::changed[reason];
    }
}

void ExpectLinesWhole(const Outcome& whole, const Outcome& outcome) {
    EXPECT_EQ(outcome.Log.size() + 1, whole.Log.size()) << "a line that is lost is lost alone";
    for (const std::string& line : outcome.Log) {
        EXPECT_THAT(whole.Log, testing::Contains(line));
    }
}

TEST_P(EveryCallTest, IsSurvived) {
    Fault none(TheKind(), 0);
    const Outcome whole = Played(TheStory(), none);
    ASSERT_THAT(whole.Complaints, IsEmpty());
    ASSERT_THAT(whole.Untrapped, IsEmpty());
    calls += none.Count();
    const int stride = std::getenv(EveryCallVariable) != nullptr ? 1 : std::max(1, none.Count() / FewRuns);
    for (int number = 1;; number += stride) {
        Fault fault(TheKind(), number);
        const Outcome outcome = Played(TheStory(), fault);
        if (fault.Call().empty()) {
            EXPECT_THAT(outcome.Complaints, IsEmpty());
            break;
        }
        ++runs;
        SCOPED_TRACE("call " + std::to_string(number) + ", " + fault.Call() + " in " + outcome.FaultStep);
        EXPECT_THAT(outcome.Complaints, IsEmpty());
        EXPECT_LE(outcome.Messages.size(), whole.Messages.size() + 1);
        for (const memory::ShownMessage& message : outcome.Messages) {
            EXPECT_TRUE(IsKnown(message)) << message.Text;
        }
        for (const UntrappedError& error : outcome.Untrapped) {
            EXPECT_TRUE(MayPass(error)) << error.Call << " in " << error.Step;
        }
        ExpectDefaultsBack(whole, outcome);
        if (TheKind() == Kind::File) {
            ExpectLinesWhole(whole, outcome);
        }
        EXPECT_LE(outcome.SpoolerHandles, whole.SpoolerHandles + 1);
        EXPECT_LE(outcome.RegistryHandles, whole.RegistryHandles + 1);
    }
}

std::string NameOfParam(const testing::TestParamInfo<std::tuple<std::size_t, Kind>>& param) {
    return Stories()[std::get<0>(param.param)].Name + "_" + NameOf(std::get<1>(param.param));
}

INSTANTIATE_TEST_SUITE_P(Stories, EveryCallTest,
                         testing::Combine(testing::Range<std::size_t>(0, Stories().size()),
                                          testing::ValuesIn(AllKinds)),
                         NameOfParam);

TEST(KindsTest, EveryCallThatCanFailIsOfOneKind) {
    for (const std::string_view call : memory::Recorder::CallsThatCanFail()) {
        EXPECT_EQ(std::count_if(std::begin(AllKinds), std::end(AllKinds),
                                [&](Kind kind) { return IsOfKind(call, kind); }),
                  1)
            << call;
    }
}

TEST(StoriesTest, ReachEveryCall) {
    const printmanager::InOwnFolder folder;
    std::set<std::string> made;
    for (const Story& story : Stories()) {
        for (const Kind kind : AllKinds) {
            Fault none(kind, 0);
            Played(story, none);
            made.insert(none.Calls().begin(), none.Calls().end());
        }
    }
    for (const CallOfKind& call : AllCalls()) {
        EXPECT_TRUE(made.contains(std::string(call.Name))) << call.Name;
    }
}

} // namespace
} // namespace fault
