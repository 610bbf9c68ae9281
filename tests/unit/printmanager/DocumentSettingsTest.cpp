#include "ManagerFixture.h"

namespace printmanager {

namespace {

class DocumentSettingsTest : public ManagerTest {
  protected:
    DocumentSettingsTest() {
        InstallTwo();
        memory.printers.Find("Inkt")->Papers.push_back({66, 1480, 2100, " Etiket "});
    }

    void Store(const std::string& kind, const std::string& printer = "Inkt") {
        const std::string path = std::string(SettingsPath) + "\\PrinterSetting\\" + kind;
        memory.registry.SetText(path, "Printer", printer);
        memory.registry.SetText(path, "Orientatie", "Liggend");
        memory.registry.SetText(path, "Formaat", "Etiket");
        memory.registry.SetText(path, "Lade", " Lade 1");
        memory.registry.SetText(path, "Matrix", "1");
    }
    void Change(const std::string& kind, const std::string& name, const std::string& value) {
        memory.registry.SetText(std::string(SettingsPath) + "\\PrinterSetting\\" + kind, name, value);
    }

    bool Applied() const { return manager->cboPrinterSelect(0).Text() == "Inkt"; }

    void ExpectUntouched() {
        EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Laser");
        EXPECT_FALSE(manager->chkMatrixPrinter.Value());
        EXPECT_FALSE(manager->blnUserChanged);
    }
};

TEST_F(DocumentSettingsTest, PutsTheSetOnTheForm) {
    Store("Etiketten");
    Open();
    manager->ApplyDocumentSettings("etiketten voor leden");
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Inkt");
    EXPECT_EQ(manager->cboPrinterSelect(3).Text(), "Liggend");
    EXPECT_EQ(manager->cboPrinterSelect(1).Text(), " Etiket ");
    EXPECT_EQ(manager->cboPrinterSelect(2).Text(), "Lade 1");
    EXPECT_TRUE(manager->chkMatrixPrinter.Value());
    EXPECT_TRUE(manager->pictDetails.Enabled());
    EXPECT_TRUE(manager->blnUserChanged);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

struct KindRow {
    const char* DocumentTitle;
    const char* Kind;
};

class KindTest : public DocumentSettingsTest, public testing::WithParamInterface<KindRow> {};

TEST_P(KindTest, TitleSelectsItsSettings) {
    Store(GetParam().Kind);
    Open();
    manager->ApplyDocumentSettings(GetParam().DocumentTitle);
    EXPECT_TRUE(Applied());
}

TEST_P(KindTest, TitleReadsNoOtherSettings) {
    for (const char* kind : {"Etiketten", "Acceptgiro", "Persoonskaart", "Gezinskaart", "Overige"}) {
        if (kind != std::string(GetParam().Kind)) {
            Store(kind);
        }
    }
    Open();
    manager->ApplyDocumentSettings(GetParam().DocumentTitle);
    ExpectUntouched();
}

INSTANTIATE_TEST_SUITE_P(Titles, KindTest,
                         testing::Values(KindRow{"etiket", "Etiketten"},
                                         KindRow{"acceptgiro's", "Acceptgiro"},
                                         KindRow{"persoonskaart", "Persoonskaart"},
                                         KindRow{"kleine gezinskaarten", "Gezinskaart"},
                                         KindRow{"grote gezinskaart", "Persoonskaart"},
                                         KindRow{"grote gezinskaart met kinderen", "Persoonskaart"},
                                         KindRow{"namenlijst", "Overige"},
                                         KindRow{"Acceptgiroformulieren voor de drukkeuring", "Overige"},
                                         KindRow{"gezinskaart", "Overige"}, KindRow{"", "Overige"}));

TEST_F(DocumentSettingsTest, MissingSettingsLeaveTheFormAsItIs) {
    Open();
    manager->OpenDetails();
    manager->ApplyDocumentSettings("etiketten");
    ExpectUntouched();
    EXPECT_TRUE(manager->pictDetails.Enabled());
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(DocumentSettingsTest, IncompleteSetLeavesTheFormDisabledUnderTheHourglass) {
    for (const char* name : {"Orientatie", "Formaat", "Lade", "Matrix"}) {
        Store("Etiketten");
        Change("Etiketten", name, "");
        Open();
        manager->ApplyDocumentSettings("etiketten");
        ExpectUntouched();
        EXPECT_FALSE(manager->pictDetails.Enabled()) << name;
        EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerHourglass) << name;
        CloseAndForget();
    }
}

TEST_F(DocumentSettingsTest, PrinterThatIsNotInstalledLeavesTheFormDisabled) {
    Store("Etiketten", "Weg");
    Open();
    manager->OpenDetails();
    manager->ApplyDocumentSettings("etiketten");
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Laser");
    EXPECT_FALSE(manager->pictDetails.Enabled());
    EXPECT_TRUE(manager->blnUserChanged);
    EXPECT_FALSE(manager->chkMatrixPrinter.Value());
    EXPECT_EQ(manager->cboPrinterSelect(1).Text(), "A4");
    EXPECT_EQ(manager->cboPrinterSelect(3).Text(), "Staand");
    // The look at the present printer's details has already ended the hourglass.
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(DocumentSettingsTest, StepsStandInOrder) {
    Store("Etiketten");
    Set("CurrentPrinter", "Inkt");
    Open();
    const std::vector<std::string> lines = TraceOf([&] { manager->ApplyDocumentSettings("etiketten"); });
    EXPECT_EQ(lines.front(), "mouse 11");
    EXPECT_EQ(lines[1], "mouse 11"); // the details' own, with the load of the lists behind it
    EXPECT_EQ(lines[2], "caps 16");
    // The selection of the printer acts as a click, so the lists are loaded again.
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "caps 16"), 4);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "mouse 0"), 2);
    EXPECT_EQ(lines.back(), "mouse 0");
}

TEST_F(DocumentSettingsTest, FirstOfSeveralEqualEntriesIsTaken) {
    Store("Etiketten");
    memory.printers.Find("Inkt")->Papers.push_back({67, 1000, 1000, "Etiket"});
    Open();
    manager->ApplyDocumentSettings("etiketten");
    EXPECT_EQ(manager->iPaperIds[static_cast<std::size_t>(manager->cboPrinterSelect(1).ListIndex())], 66);
}

TEST_F(DocumentSettingsTest, NothingIsWritten) {
    Store("Etiketten");
    Open();
    EXPECT_THAT(TraceOf([&] { manager->ApplyDocumentSettings("etiketten"); }, "store"), testing::IsEmpty());
}

TEST_F(DocumentSettingsTest, StoreThatFailsLeavesTheFormAsItIs) {
    Store("Etiketten");
    Open();
    manager->OpenDetails();
    memory.recorder.Fail("RegOpenKeyA", 5);
    manager->ApplyDocumentSettings("etiketten");
    ExpectUntouched();
    EXPECT_TRUE(manager->pictDetails.Enabled());
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(DocumentSettingsTest, NamesAreComparedExactlyButForBlanks) {
    Store("Etiketten", "  Inkt ");
    Change("Etiketten", "Formaat", "etiket");
    Change("Etiketten", "Lade", "Lade 7");
    Change("Etiketten", "Orientatie", "liggend");
    Change("Etiketten", "Matrix", "0");
    state.MatrixPrinter = true;
    Open();
    manager->ApplyDocumentSettings("etiketten");
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Inkt");
    // Without a hit the driver's own choice stays.
    EXPECT_EQ(manager->cboPrinterSelect(1).Text(), "A4");
    EXPECT_EQ(manager->cboPrinterSelect(2).Text(), "Automatisch");
    EXPECT_EQ(manager->cboPrinterSelect(3).Text(), "Staand");
    EXPECT_FALSE(manager->chkMatrixPrinter.Value());
}

TEST_F(DocumentSettingsTest, OrientationWithoutSelectionBecomesTheFirst) {
    Store("Etiketten");
    Change("Etiketten", "Orientatie", "scheef");
    memory.printers.Find("Laser")->Reachable = false;
    memory.printers.Find("Inkt")->Reachable = false;
    Open();
    EXPECT_EQ(manager->cboPrinterSelect(3).ListIndex(), -1);
    manager->ApplyDocumentSettings("etiketten");
    EXPECT_EQ(manager->cboPrinterSelect(3).ListIndex(), 0);
}

TEST_F(DocumentSettingsTest, PrinterWithoutListsIsLoadedFirst) {
    Set("CurrentPrinter", "Laser");
    Store("Etiketten");
    Open();
    EXPECT_TRUE(manager->blnNoConnection);
    manager->ApplyDocumentSettings("etiketten");
    EXPECT_TRUE(Applied());
    EXPECT_EQ(manager->cboPrinterSelect(1).Text(), " Etiket ");
}

} // namespace
} // namespace printmanager
