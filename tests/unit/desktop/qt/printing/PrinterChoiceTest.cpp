// What is chosen through the spooler's calls, as the printer takes it.
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "desktop/cups/CupsSpooler.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "unit/desktop/cups/FakeQueue.h"

namespace desktop::qt {
namespace {

class PrinterChoiceTest : public testing::Test {
  protected:
    PrinterChoiceTest() { cups::OfferTwoOfEach(*Queue); }

    machine::PrinterHandle Open(const std::string& name = "Kantoor") {
        machine::PrinterHandle handle = 99;
        const bool opened = Spooler.OpenPrinterA(name, handle, {nullptr, nullptr, machine::PrinterAccessUse});
        EXPECT_EQ(opened, handle != 0);
        return handle;
    }

    QTemporaryDir Folder;
    cups::FakeQueue* Queue = new cups::FakeQueue; // owned by the list
    QtPrinters Printers{std::make_unique<PdfPrinter>(AskForPdfFile, Folder.filePath("pdf.conf")), [this] {
                            cups::FoundQueues found;
                            found.Queues.emplace_back(Queue);
                            found.Default = 0;
                            return found;
                        }};
    cups::CupsSpooler Spooler{Printers};

    void SetUp() override { ASSERT_EQ(Printers.Count(), 2); }
};

TEST_F(PrinterChoiceTest, AChoiceHoldsWhereThePrinterCouldNotBeOpenedForIt) {
    QtPrinter printer(Printers, [](const std::string&) {});
    printer.Assign(0);
    Queue->IsReachable = false;
    EXPECT_EQ(Open(), 0U); // to write it
    printer.SetOrientation(cups::Landscape);
    printer.SetPaperSize(300);
    printer.SetPaperBin(256);
    printer.Assign(0);
    EXPECT_EQ(printer.Orientation(), cups::Portrait); // goes to no stored defaults
    EXPECT_EQ(printer.PaperSize(), 300);
    EXPECT_EQ(printer.PaperBin(), 256);
    Queue->IsReachable = true;
    EXPECT_NE(Open(), 0U);
    printer.SetPaperSize(9);
    printer.Assign(0);
    EXPECT_EQ(printer.PaperSize(), 300); // what is not written is not kept
}

TEST_F(PrinterChoiceTest, StoresThePdfPrintersDefaultsInTheProgramAlone) {
    const machine::PrinterHandle handle = Open("PDF-bestand");
    machine::DEVMODE mode{};
    ASSERT_EQ(Spooler.DocumentPropertiesA(handle, "PDF-bestand", &mode, nullptr, machine::DM_OUT_BUFFER), 1);
    mode.dmPaperSize = cups::PaperLegal;
    machine::PRINTER_INFO_2 info{};
    info.pDevMode = &mode;
    EXPECT_TRUE(Spooler.SetPrinterA(handle, 2, &info, 0));
    ASSERT_EQ(Spooler.DocumentPropertiesA(handle, "PDF-bestand", &mode, nullptr, machine::DM_OUT_BUFFER), 1);
    EXPECT_EQ(mode.dmPaperSize, cups::PaperLegal);
    EXPECT_FALSE(QFile::exists(Folder.filePath("pdf.conf")));
}

} // namespace
} // namespace desktop::qt
