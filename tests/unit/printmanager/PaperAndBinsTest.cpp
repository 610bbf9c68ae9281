#include "printmanager/PaperAndBins.h"

#include "ManagerFixture.h"
#include "StubSpooler.h"

namespace printmanager {

using testing::ElementsAre;

namespace {

class PaperAndBinsTest : public ManagerTest {
  protected:
    PaperAndBinsTest() { InstallTwo(); }

    std::int16_t Ask(const std::string& name = "Laser") {
        return GetPaperAndBins(memory.Services(), name, lists);
    }
    memory::PrintQueue& Laser() { return *memory.printers.Find("Laser"); }

    PaperAndBins lists;
};

TEST_F(PaperAndBinsTest, GivesNamesIdentifiersAndDimensions) {
    Laser().Defaults.PaperSize = 5;
    EXPECT_EQ(Ask(), 0);
    EXPECT_THAT(lists.PaperNames, ElementsAre("A4", "Legal"));
    EXPECT_THAT(lists.PaperIds, ElementsAre(9, 5));
    ASSERT_EQ(lists.PaperSizes.size(), 2U);
    EXPECT_EQ(lists.PaperSizes[1].Width, 2159);
    EXPECT_EQ(lists.PaperSizes[1].Height, 3556);
    EXPECT_EQ(lists.CurrentPaper, 5);
    EXPECT_THAT(lists.BinNames, ElementsAre("Automatisch", "Lade 1"));
    EXPECT_THAT(lists.BinIds, ElementsAre(15, 1));
    EXPECT_EQ(lists.CurrentBin, 15);
}

TEST_F(PaperAndBinsTest, AsksInAFixedOrder) {
    EXPECT_THAT(TraceOf([&] { Ask(); }),
                ElementsAre("caps 16", "caps 2", "caps 16", "caps 3", "caps 6", "caps 6", "caps 12",
                            "open Laser", "size", "fetch", "close Laser", "open Laser", "size", "fetch",
                            "close Laser"));
    EXPECT_EQ(FieldText(events.front(), "port"), "Laser:");
}

TEST_F(PaperAndBinsTest, NamesComeInTheMachinesCodePage) {
    Laser().Bins = {{15, "Invoer ë"}};
    EXPECT_EQ(Ask(), 0);
    EXPECT_THAT(lists.BinNames, ElementsAre("Invoer ë"));
}

TEST_F(PaperAndBinsTest, NameHasToMatchExactly) {
    EXPECT_EQ(Ask("laser"), -1);
    EXPECT_EQ(Ask("Laser "), -1);
    EXPECT_EQ(Ask(""), -1);
    EXPECT_TRUE(events.empty());
}

TEST_F(PaperAndBinsTest, FailsWhereThePrinterDoesNotAnswer) {
    Laser().Reachable = false;
    EXPECT_EQ(Ask(), -1);
}

TEST_F(PaperAndBinsTest, FailsWithoutPapersOrBins) {
    Laser().Papers.clear();
    EXPECT_EQ(Ask(), -1);
    Laser().Papers = {{9, 2100, 2970, "A4"}};
    Laser().Bins.clear();
    EXPECT_EQ(Ask(), -1);
}

TEST_F(PaperAndBinsTest, NameThatFillsItsFieldFails) {
    Laser().Papers[0].Name = std::string(63, 'x');
    Laser().Bins[0].Name = std::string(23, 'x');
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(lists.PaperNames[0].size(), 63U);
    EXPECT_EQ(lists.BinNames[0].size(), 23U);
    Laser().Bins[0].Name = std::string(24, 'x');
    EXPECT_EQ(Ask(), -1);
    Laser().Bins[0].Name = "Lade";
    Laser().Papers[0].Name = std::string(64, 'x');
    EXPECT_EQ(Ask(), -1);
}

TEST_F(PaperAndBinsTest, FailsWhereTheListOfPrintersFails) {
    memory.recorder.Fail("Printers");
    EXPECT_EQ(Ask(), -1);
}

TEST_F(PaperAndBinsTest, MoreEntriesThanPositionsFail) {
    Laser().Papers.assign(40000, {9, 2100, 2970, "A4"});
    EXPECT_EQ(Ask(), -1);
    Laser().Papers.assign(32767, {9, 2100, 2970, "A4"});
    EXPECT_EQ(Ask(), 0);
}

class StubbedListsTest : public ManagerTest {
  protected:
    StubbedListsTest() {
        Install("Laser");
        const std::string name(64, '\0');
        stub.Capabilities = {{machine::DC_PAPERNAMES, {1, 1, name}},
                             {machine::DC_PAPERS, {1, 1, std::string(2, '\1')}},
                             {machine::DC_PAPERSIZE, {1, 1, std::string(8, '\1')}},
                             {machine::DC_BINS, {1, 1, std::string(2, '\1')}},
                             {machine::DC_BINNAMES, {1, 1, std::string(24, '\0')}}};
    }

    std::int16_t Ask() { return GetPaperAndBins(services, "Laser", lists); }

    StubSpooler stub;
    machine::Platform services = WithSpooler(memory.Services(), stub);
    PaperAndBins lists;
};

TEST_F(StubbedListsTest, SensibleAnswersSucceed) {
    EXPECT_EQ(Ask(), 0);
    EXPECT_THAT(lists.PaperNames, ElementsAre(""));
    EXPECT_THAT(lists.BinIds, ElementsAre(0x0101));
}

TEST_F(StubbedListsTest, ImpossibleCountsFail) {
    for (const int capability : {int{machine::DC_PAPERNAMES}, int{machine::DC_BINS}}) {
        for (const std::int32_t count :
             {std::int32_t{-1}, std::int32_t{0}, std::int32_t{32768}, INT32_MAX, INT32_MIN}) {
            const auto sensible = stub.Capabilities;
            stub.Capabilities[capability].Count = count;
            EXPECT_EQ(Ask(), -1) << capability << " " << count;
            stub.Capabilities = sensible;
        }
    }
}

TEST_F(StubbedListsTest, SecondCallThatTellsMoreThanTheFirstFails) {
    for (const int capability : {int{machine::DC_PAPERS}, int{machine::DC_BINS}}) {
        for (const std::int32_t told : {std::int32_t{-1}, std::int32_t{2}, INT32_MAX, INT32_MIN}) {
            const auto sensible = stub.Capabilities;
            stub.Capabilities[capability].Told = told;
            EXPECT_EQ(Ask(), -1) << capability << " " << told;
            stub.Capabilities = sensible;
        }
    }
}

TEST_F(StubbedListsTest, SecondCallThatTellsFewerLeavesNamesEmpty) {
    stub.Capabilities[machine::DC_PAPERNAMES] = {3, 3, "A4" + std::string(190, '\0')};
    stub.Capabilities[machine::DC_PAPERS].Told = 1;
    EXPECT_EQ(Ask(), 0);
    EXPECT_THAT(lists.PaperNames, ElementsAre("A4", "", ""));
    EXPECT_EQ(lists.PaperIds.size(), 3U);
}

TEST_F(StubbedListsTest, EntriesBeyondTheCountDoNoHarm) {
    stub.Capabilities[machine::DC_PAPERS].Bytes = std::string(2000, '\2');
    stub.Capabilities[machine::DC_PAPERSIZE].Bytes = std::string(8000, '\2');
    stub.Capabilities[machine::DC_BINNAMES].Bytes = std::string(24, '\0') + std::string(5000, 'x');
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(lists.PaperIds.size(), 1U);
    EXPECT_EQ(lists.PaperSizes.size(), 1U);
}

} // namespace
} // namespace printmanager
