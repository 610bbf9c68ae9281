#include "composition/OpenPrinter.h"

#include "CompositionTest.h"
#include "forms/Desktop.h"

namespace composition {

using forms::MessageIcon;
using memory::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

class OpenPrinterTest : public CompositionTest {
  protected:
    OpenPrinterTest() {
        state.Surface = nullptr;
        state.SurfaceWidth = state.SurfaceLeft = state.SurfaceTop = state.SurfaceHeight = -1;
        printer.Drawing.Font.Size = 12;
        printer.scaleLeft = 20;
        printer.scaleTop = 30;
    }
    void Open() { OpenPrinter(state, services, host.printer); }
    const std::vector<ShownMessage>& Messages() { return memory.desktop.Messages(); }

    const std::string title = "Drukkeuring acceptgiro's";
    const std::string notThisMode =
        "Fout tijdens de initialisatie van de printer.\r\n"
        "Waarschijnlijk kan de gekozen printer niet in de gekozen modus afdrukken.\r\n"
        "Regel: ";
    const std::string notFound =
        "De printer kon niet worden gevonden of de initialisatie van de printer is op dit "
        "moment niet mogelijk.\r\nRegel: ";
    const std::string unknown =
        "Fout tijdens de initialisatie van de printer.\r\nMocht u deze fout niet zelf kunnen oplossen en u "
        "kunt "
        "deze fout reproduceren neem dan contact op met Ondor BV.\r\n\r\nFoutnummer: ";
};

TEST_F(OpenPrinterTest, MakesThePrinterTheSurface) {
    Open();
    EXPECT_EQ(state.Surface, &host.printer);
    EXPECT_EQ(printer.Drawing.Font.Name, "Printer");
    EXPECT_EQ(printer.Drawing.Font.Size, 8);
    EXPECT_EQ(state.SurfaceWidth, 11424);
    EXPECT_EQ(state.SurfaceLeft, 20);
    EXPECT_EQ(state.SurfaceTop, 30);
    EXPECT_EQ(state.SurfaceHeight, 16358);
    EXPECT_EQ(memory.desktop.Yields(), 1);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(printer.canvas.calls, 0); // the document begins with the first output
}

TEST_F(OpenPrinterTest, LeavesTheSurfaceWithoutAPrinter) {
    printers.count = 0;
    state.Surface = &host.preview;
    Open();
    EXPECT_EQ(state.Surface, &host.preview);
    EXPECT_EQ(state.SurfaceWidth, -1);
    EXPECT_EQ(printer.Drawing.Font.Size, 12);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(OpenPrinterTest, TellsThatTheModeIsImpossibleAndGoesOn) {
    printer.failures = {{"DeviceName", {380, "Invalid property value"}}};
    Open();
    EXPECT_THAT(Messages(), ElementsAre(ShownMessage{notThisMode + "2", MessageIcon::Exclamation, title}));
    EXPECT_EQ(state.Surface, &host.printer);
    EXPECT_EQ(state.SurfaceHeight, 16358);
}

TEST_F(OpenPrinterTest, TellsThatThePrinterIsNotFoundAndGoesOn) {
    printer.failures = {{"ScaleLeft", {482, "Printer error"}}};
    Open();
    EXPECT_THAT(Messages(), ElementsAre(ShownMessage{notFound + "6", MessageIcon::Exclamation, title}));
    EXPECT_EQ(state.SurfaceLeft, -1);
    EXPECT_EQ(state.SurfaceTop, 30);
}

TEST_F(OpenPrinterTest, TellsAnyOtherFailureByItsNumber) {
    printer.failures = {{"ScaleTop", {70, "Permission denied"}}};
    Open();
    EXPECT_THAT(Messages(), ElementsAre(ShownMessage{unknown + "70 - Permission denied\r\nRegel: 7",
                                                     MessageIcon::Critical, title}));
    EXPECT_EQ(state.SurfaceHeight, 16358);
}

TEST_F(OpenPrinterTest, TellsEachFailingStep) {
    printers.failure = 482;
    printer.failures = {
        {"DeviceName", {482, ""}}, {"ScaleLeft", {380, ""}}, {"ScaleTop", {51, "Internal error"}}};
    memory.desktop.OnYield = [] { throw base::RuntimeError(380, ""); };
    Open();
    EXPECT_THAT(Messages(), ElementsAre(ShownMessage{notFound + "1", MessageIcon::Exclamation, title},
                                        ShownMessage{notFound + "2", MessageIcon::Exclamation, title},
                                        ShownMessage{notThisMode + "22", MessageIcon::Exclamation, title},
                                        ShownMessage{notThisMode + "6", MessageIcon::Exclamation, title},
                                        ShownMessage{unknown + "51 - Internal error\r\nRegel: 7",
                                                     MessageIcon::Critical, title}));
    EXPECT_EQ(state.Surface, &host.printer);
    EXPECT_EQ(state.SurfaceWidth, 11424);
}

} // namespace composition
