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
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
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
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
}

TEST_F(DocumentSettingsTest, IncompleteSetLeavesTheFormDisabledUnderTheHourglass) {
    for (const char* name : {"Orientatie", "Formaat", "Lade", "Matrix"}) {
        Store("Etiketten");
        Change("Etiketten", name, "");
        Open();
        manager->ApplyDocumentSettings("etiketten");
        ExpectUntouched();
        EXPECT_FALSE(manager->pictDetails.Enabled()) << name;
        EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerHourglass) << name;
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
