#include "ManagerFixture.h"
#include "forms/FormPeer.h"
#include "printmanager/frmPrintManagerSetup.h"

namespace printmanager {

using testing::IsEmpty;

namespace {

class LayoutTest : public ManagerTest {
  protected:
    static bool Overlap(const forms::Control& a, const forms::Control& b) {
        return a.Left() < b.Left() + b.Width() && b.Left() < a.Left() + a.Width() &&
               a.Top() < b.Top() + b.Height() && b.Top() < a.Top() + a.Height();
    }

    static std::string FullName(const forms::Control& control) {
        return control.Index() == forms::Control::NoIndex
                   ? control.Name()
                   : control.Name() + "(" + std::to_string(control.Index()) + ")";
    }

    /// Pairs of visible controls of one container that lie over each other.
    static std::vector<std::string> Overlaps(const forms::Form& form) {
        std::vector<std::string> pairs;
        const auto& controls = form.Controls();
        for (std::size_t i = 0; i < controls.size(); ++i) {
            for (std::size_t j = i + 1; j < controls.size(); ++j) {
                const forms::Control& a = *controls[i];
                const forms::Control& b = *controls[j];
                if (a.Container() == b.Container() && a.IsShown() && b.IsShown() && Overlap(a, b)) {
                    pairs.push_back(FullName(a) + " " + FullName(b));
                }
            }
        }
        return pairs;
    }

    /// Visible controls that stick out of what holds them.
    static std::vector<std::string> StickingOut(const forms::Form& form, double bottom) {
        std::vector<std::string> names;
        for (const forms::Control* control : form.Controls()) {
            const double right = control->Container() ? control->Container()->Width() : form.Width();
            const double below = control->Container() ? control->Container()->Height() : bottom;
            if (control->IsShown() &&
                (control->Left() < 0 || control->Top() < 0 || control->Left() + control->Width() > right ||
                 control->Top() + control->Height() > below)) {
                names.push_back(FullName(*control));
            }
        }
        return names;
    }
};

TEST_F(LayoutTest, NothingOverlapsOrSticksOut) {
    InstallTwo();
    Open();
    EXPECT_EQ(manager->Width(), 6840);
    EXPECT_THAT(Overlaps(*manager), IsEmpty());
    EXPECT_THAT(StickingOut(*manager, 4035), IsEmpty());
    manager->OpenDetails();
    EXPECT_THAT(Overlaps(*manager), IsEmpty());
    EXPECT_THAT(StickingOut(*manager, 7440), IsEmpty());
}

TEST_F(LayoutTest, TextsStandToTheLetter) {
    InstallTwo();
    Open();
    EXPECT_EQ(manager->Caption(), "Afdrukbeheer");
    EXPECT_EQ(manager->Header1.Caption(), "Afdrukken:");
    EXPECT_EQ(manager->cmdPrint.Caption(), "Af&drukken");
    EXPECT_EQ(manager->cmdPrintVoorbeeld.Caption(), "&Voorbeeld");
    EXPECT_EQ(manager->cmdSetup.Caption(), "&Instellen...");
    EXPECT_EQ(manager->cmdSetup.ToolTipText(), "Opmaak instellingen...");
    EXPECT_EQ(manager->cmdAnnuleren.Caption(), "&Sluiten");
    EXPECT_EQ(manager->Label4.Caption(), "Aantal copieën afdrukken: ");
    EXPECT_EQ(manager->Label3.Caption(), "Printer:");
    EXPECT_EQ(manager->cboPrinterSelect(0).ToolTipText(), "Geselecteerde printer");
    EXPECT_EQ(manager->cboPrinterSelect(1).ToolTipText(), "Formaat van het papier...");
    EXPECT_EQ(manager->cboPrinterSelect(2).ToolTipText(), "De te gebruiken printerlade...");
    EXPECT_EQ(manager->cboPrinterSelect(3).ToolTipText(), "Orientatie van het papier...");
    EXPECT_EQ(manager->chkMatrixPrinter.Caption(), "Deze printer is een matrix printer.");
    EXPECT_EQ(manager->Label6.Caption(), "Progressie:");
    EXPECT_EQ(manager->cmdDetails.ToolTipText(), "Printer details...");
    EXPECT_EQ(manager->pictMyOrientation.ToolTipText(), "Papier oriëntatie");
    EXPECT_EQ(manager->pictError.ToolTipText(), "Geen verbinding met deze printer...");
    EXPECT_EQ(manager->Label2.Caption(), "Printerdetails:");
    EXPECT_EQ(manager->lblPrinterSelect(2).Caption(), "Printer:");
    EXPECT_EQ(manager->lblPrinterSelect(1).Caption(), "Status:");
    EXPECT_EQ(manager->lblPrinterSelect(3).Caption(), "Locatie:");
    EXPECT_EQ(manager->lblPrinterSelect(4).Caption(), "Commentaar:");
    EXPECT_EQ(manager->Label8.Caption(), "Papier oriëntatie");
    EXPECT_EQ(manager->Label7.Caption(), "Papierformaat:");
    EXPECT_EQ(manager->Label5.Caption(), "Papierlade:");
    EXPECT_EQ(manager->Label10.Caption(), "De gegevens worden gesorteerd...");
}

TEST_F(LayoutTest, DetailsStandFromOrientationToBin) {
    Open();
    EXPECT_LT(manager->cboPrinterSelect(3).Top(), manager->cboPrinterSelect(1).Top());
    EXPECT_LT(manager->cboPrinterSelect(1).Top(), manager->cboPrinterSelect(2).Top());
    EXPECT_LT(manager->cboPrinterSelect(3).TabIndex(), manager->cboPrinterSelect(1).TabIndex());
    EXPECT_LT(manager->cboPrinterSelect(1).TabIndex(), manager->cboPrinterSelect(2).TabIndex());
}

TEST_F(LayoutTest, FakeFormHasItsPlaceAndBorder) {
    Open();
    const forms::PictureBox& panel = manager->pictFakeForm;
    EXPECT_EQ(panel.Width(), 5500);
    EXPECT_EQ(panel.Height(), 1035);
    EXPECT_EQ(panel.Left(), manager->Width() / 2 - 2750);
    EXPECT_EQ(panel.Top(), 4650.0 / 3 - 517.5);
    struct Row {
        const forms::LineControl& Line;
        double X1;
        double X2;
        double Y1;
        double Y2;
    };
    const Row rows[] = {
        {manager->lFormX1, 0, 0, 0, 1020},        {manager->lFormX2, 15, 15, 30, 1005},
        {manager->lFormX3, 5470, 5470, 15, 1020}, {manager->lFormX4, 5485, 5485, 0, 1035},
        {manager->lFormY1, 15, 5485, 0, 0},       {manager->lFormY2, 15, 5470, 15, 15},
        {manager->lFormY3, 15, 5485, 1005, 1005}, {manager->lFormY4, 0, 5500, 1020, 1020},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.Line.X1(), row.X1) << row.Line.Name();
        EXPECT_EQ(row.Line.X2(), row.X2) << row.Line.Name();
        EXPECT_EQ(row.Line.Y1(), row.Y1) << row.Line.Name();
        EXPECT_EQ(row.Line.Y2(), row.Y2) << row.Line.Name();
    }
    EXPECT_EQ(panel.Container(), nullptr);
    EXPECT_EQ(manager->ProgressBarSort.Container(), &panel);
}

TEST_F(LayoutTest, EnterPrintsAndEscapeCloses) {
    Open();
    EXPECT_TRUE(manager->cmdPrint.Default());
    EXPECT_TRUE(manager->cmdAnnuleren.Cancel());
}

TEST_F(LayoutTest, SetupFormHoldsTogether) {
    frmPrintManagerSetup setup(session, memory.Services(), state);
    setup.Show();
    EXPECT_EQ(setup.Width(), 6240);
    EXPECT_EQ(setup.Height() - forms::TitleBarHeight, 2670);
    EXPECT_THAT(Overlaps(setup), IsEmpty());
    EXPECT_THAT(StickingOut(setup, 2670), IsEmpty());
}

} // namespace
} // namespace printmanager
