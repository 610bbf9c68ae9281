#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "desktop/windows/Win32.h"

#include "desktop/windows/WinPrinter.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

namespace {

constexpr double TwipsPerPoint = 20;
constexpr int HandleRounds = 200;

int IndexOf(WinPrinters& printers, const std::string& name) {
    const int count = printers.Count();
    for (int i = 0; i < count; ++i) {
        if (printers.Item(i).DeviceName == name) {
            return i;
        }
    }
    return -1;
}

void CheckMeasures(WinPrinter& printer) {
    // A4 in points with the margins of the printer's description, in whole dots of 600 to the inch.
    constexpr double dot = 2.4;
    CheckNear(printer.Width(), 595 * TwipsPerPoint, dot, "the sheet's width");
    CheckNear(printer.Height(), 842 * TwipsPerPoint, dot, "the sheet's height");
    CheckNear(printer.ScaleWidth(), (577 - 18) * TwipsPerPoint, dot, "the printable width");
    CheckNear(printer.ScaleHeight(), (824 - 36) * TwipsPerPoint, dot, "the printable height");
    CheckNear(printer.ScaleLeft() + printer.ScaleTop(), 0, 0, "the origin is the printable area's");
    CheckEqual(printer.GetDeviceCaps(machine::CapsLogPixelsX), 600, "dots to the inch");
    CheckNear(printer.GetDeviceCaps(machine::CapsPhysicalOffsetX), 18 * 600 / 72.0, 1,
              "the margin left in dots");
    CheckNear(printer.GetDeviceCaps(machine::CapsPhysicalOffsetY), 18 * 600 / 72.0, 1,
              "the margin above in dots");
}

void CheckProperties(WinPrinters& printers, WinPrinter& printer) {
    CheckEqual(printer.DeviceName(), "Kantoor", "until one is assigned it is the default printer");
    CheckEqual(printer.Drawing.Font.Name, "Tahoma", "with a font of its own");
    CheckEqual(printer.PaperSize(), DMPAPER_A4, "with its stored paper");
    CheckEqual(printer.Copies(), 1, "and its copies");
    CheckMeasures(printer);

    const double height = printer.Height();
    printer.SetOrientation(DMORIENT_LANDSCAPE);
    CheckNear(printer.Width(), height, 3, "a sheet on its side is as wide as it was high");
    printer.SetPaperSize(DMPAPER_LEGAL);
    CheckNear(printer.Width(), 1008 * TwipsPerPoint, 3, "another paper has its own measures");
    printer.SetPaperBin(printer.PaperBin());
    CheckRaises(
        base::ErrorInvalidPropertyValue, [&] { printer.SetOrientation(3); }, "there is no third orientation");
    CheckRaises(
        base::ErrorInvalidPropertyValue, [&] { printer.SetPaperSize(12345); },
        "a paper that the printer lacks");
    CheckRaises(
        base::ErrorInvalidPropertyValue, [&] { printer.SetPaperBin(12345); }, "a bin that the printer lacks");
    CheckEqual(printer.PaperSize(), DMPAPER_LEGAL, "a refused value changes nothing");

    printer.Drawing = {10, 20, {"Courier", 12, true}};
    printer.Assign(IndexOf(printers, "Kantoor"));
    CheckEqual(printer.PaperSize(), DMPAPER_A4, "assigning takes the stored paper afresh");
    CheckEqual(printer.Orientation(), DMORIENT_PORTRAIT, "and the orientation");
    Check(printer.Drawing.Font == machine::FontSpec{"Tahoma", 8, false} && printer.Drawing.CurrentX == 0,
          "and the printer's own font and cursor");
    printer.Assign(IndexOf(printers, "Büro"));
    CheckEqual(printer.DeviceName(), "Büro", "another printer becomes the current one");
    CheckRaises(
        base::ErrorSubscriptOutOfRange, [&] { printer.Assign(99); }, "one that is not there is refused");
    CheckEqual(printer.DeviceName(), "Büro", "and the current one stays");
    printer.Assign(IndexOf(printers, "Kantoor"));
}

void CheckText(WinPrinter& printer) {
    machine::Canvas& page = printer.Page();
    const machine::FontSpec tahoma{"Tahoma", 12, false};
    const double one = page.MeasureText("1", tahoma).Width;
    CheckNear(page.MeasureText(std::string(100, '1'), tahoma).Width, 100 * one, 0.001,
              "a long text is as wide as its letters together");
    CheckNear(page.MeasureText("\x01\x7F", tahoma).Width, 0, 0, "control characters have no width");
    Check(page.MeasureText("", tahoma).Height > 0, "an empty text has a height");
    CheckNear(page.MeasureText("1", {"OCR-B", 10, false}).Width, 144.6, 0.01,
              "OCR-B at 10 points: 7.23 points");
    Check(page.MeasureText("x", {"Tahoma", std::numeric_limits<double>::quiet_NaN(), false}).Width >= 0,
          "a size that is no number is a very small one");
    Check(page.MeasureText("x", {"Tahoma", 1e9, false}).Width > 0, "a huge size is the largest one");
    Check(page.MeasureText("x", {std::string(500, 'q'), 10, false}).Width > 0,
          "a font that is not there is replaced");
    Check(page.MeasureText("\xFF\xFE", tahoma).Width > 0, "bytes that are no text are shown all the same");
}

void NothingToTell(const std::string& text) {
    Check(false, text);
}

void CheckChangeBetweenPages(WinPrinters& printers) {
    WinPrinter printer(printers, NothingToTell);
    const double height = printer.Height();
    printer.Page().DrawText(0, 0, "first", {"Tahoma", 8, false});
    printer.SetPaperSize(DMPAPER_LEGAL);
    CheckNear(printer.Height(), height, 0, "a page that has begun keeps its paper");
    printer.Page().NewPage();
    CheckNear(printer.Height(), 1008 * TwipsPerPoint, 3, "the next one has the new paper");
    printer.SetPaperSize(DMPAPER_A5);
    printer.Assign(IndexOf(printers, "Kantoor"));
    CheckNear(printer.Height(), height, 0, "and the next document the stored one");
}

/// A document that is begun and given up: in so many words, by the assignment, also one that fails, and by
/// the printer's end.
void CheckGivenUp(WinPrinters& printers) {
    {
        WinPrinter printer(printers, NothingToTell);
        printer.Page().DrawText(0, 0, "given up", {"Tahoma", 8, false});
        printer.Assign(IndexOf(printers, "Kantoor"));
        printer.Page().EndDocument();
        printer.Page().DrawText(0, 0, "given up", {"Tahoma", 8, false});
    }
    {
        WinPrinter printer(printers, NothingToTell);
        CheckEqual(printer.DeviceName(), "Kantoor", "the default printer");
        printer.Page().DrawText(0, 0, "given up", {"Tahoma", 8, false});
        CheckRaises(
            base::ErrorSubscriptOutOfRange, [&] { printer.Assign(99); }, "no printer of this number");
        printer.Page().EndDocument(); // of a document that has not begun
    }
    {
        WinPrinter printer(printers, NothingToTell);
        printer.Abandon(); // of nothing
        printer.Page().DrawText(0, 0, "given up", {"Tahoma", 8, false});
        printer.Page().NewPage();
        printer.Abandon();
        printer.Page().EndDocument();
    }
    Check(true, "a document that is not ended is taken back");
}

void DeletePrinter(const wchar_t* name) {
    PRINTER_DEFAULTSW defaults{nullptr, nullptr, PRINTER_ALL_ACCESS};
    std::wstring writable = name;
    HANDLE handle = nullptr;
    Check(::OpenPrinterW(writable.data(), &handle, &defaults) != FALSE && ::DeletePrinter(handle) != FALSE,
          "a printer can be taken away");
    ::ClosePrinter(handle);
}

/// A printer that goes away after it has become the current one.
void CheckVanished(WinPrinters& printers) {
    int told = 0;
    WinPrinter printer(printers, [&told](const std::string&) { ++told; });
    printer.Assign(IndexOf(printers, "Büro"));
    DeletePrinter(L"B\u00FCro");
    Check(IndexOf(printers, "Büro") >= 0, "the list stays as it is");
    printer.Assign(IndexOf(printers, "Kantoor"));
    printer.Assign(IndexOf(printers, "Büro"));
    CheckEqual(printer.DeviceName(), std::string("Büro"),
               "a printer that is gone can become the current one");
    CheckEqual(printer.Copies(), std::int16_t{1}, "with one copy");
    printers.Refresh();
    CheckEqual(IndexOf(printers, "Büro"), -1, "until it is asked for anew");
    CheckRaises(
        base::ErrorPrinter, [&] { printer.ScaleLeft(); }, "its measures cannot be had");
    CheckRaises(
        base::ErrorPrinter, [&] { printer.SetOrientation(DMORIENT_LANDSCAPE); },
        "its settings cannot be changed");
    machine::Canvas& page = printer.Page();
    const machine::FontSpec font{"Tahoma", 8, false};
    CheckRaises(
        base::ErrorPrinter, [&] { page.DrawText(0, 0, "x", font); }, "a document cannot begin");
    CheckEqual(told, 1, "and the user is told");
    page.DrawText(0, 0, "x", font);
    page.NewPage();
    page.EndDocument();
    CheckEqual(told, 1, "once for the whole document");
    CheckRaises(
        base::ErrorPrinter, [&] { page.NewPage(); }, "the next document tries again");
    CheckEqual(told, 2, "and is told again");
}

void CheckHandles(WinPrinters& printers) {
    WinPrinter printer(printers, NothingToTell);
    const auto round = [&] {
        printer.Assign(IndexOf(printers, "Kantoor"));
        printer.SetOrientation(DMORIENT_LANDSCAPE);
        printer.ScaleWidth();
        printer.Page().MeasureText("X", printer.Drawing.Font);
        printer.Page().DrawText(0, 0, "X", printer.Drawing.Font);
        printer.Page().DrawLine(0, 0, 100, 100, 0);
        printer.Page().NewPage();
        printer.Assign(IndexOf(printers, "Kantoor")); // which gives the document up
        printer.SetOrientation(DMORIENT_PORTRAIT);
        printer.ScaleWidth();
    };
    round();
    const DWORD gdi = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    DWORD kernel = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &kernel);
    for (int i = 0; i < HandleRounds; ++i) {
        round();
    }
    DWORD kernelAfter = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &kernelAfter);
    CheckEqual(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), gdi,
               "no graphics object is left behind");
    CheckEqual(kernelAfter, kernel, "no handle is left behind");
}

} // namespace

void CheckPrinter() {
    WinPrinters printers;
    {
        WinPrinter printer(printers, NothingToTell);
        CheckProperties(printers, printer);
        CheckText(printer);
        const std::string name = printer.DeviceName();
        printer.Page().EndDocument();
        Check(printer.DeviceName() == name, "the end of a document that never began changes nothing");
    }
    CheckChangeBetweenPages(printers);
    CheckGivenUp(printers);
    CheckHandles(printers);
    CheckVanished(printers);
}

namespace {

class Samples {
  public:
    explicit Samples(WinPrinter& printer) : printer_(printer) {}

    void Text(double x, double y, const std::string& text, const machine::FontSpec& font) {
        machine::Canvas& page = printer_.Page();
        page.DrawText(x, y, text, font);
        const machine::TextSize size = page.MeasureText(text, font);
        std::printf("text\t%d\t%.3f\t%.3f\t%.3f\t%.3f\t%s\t%.2f\t%d\t%s\n", number_, x, y, size.Width,
                    size.Height, font.Name.c_str(), font.Size, font.Bold ? 1 : 0, text.c_str());
    }
    void Line(double x1, double y1, double x2, double y2, std::int32_t colour) {
        printer_.Page().DrawLine(x1, y1, x2, y2, colour);
        std::printf("line\t%d\t%.3f\t%.3f\t%.3f\t%.3f\n", number_, x1, y1, x2, y2);
    }
    void NewPage() {
        printer_.Page().NewPage();
        ++number_;
    }

  private:
    WinPrinter& printer_;
    int number_ = 1;
};

} // namespace

namespace {

void ShowMargins(WinPrinter& printer) {
    std::printf("margins\t%d\t%d\t%d\n", printer.GetDeviceCaps(machine::CapsPhysicalOffsetX),
                printer.GetDeviceCaps(machine::CapsPhysicalOffsetY),
                printer.GetDeviceCaps(machine::CapsLogPixelsX));
}

const machine::FontSpec Small{"Tahoma", 8, false};

void PrintUpright(WinPrinter& printer) {
    printer.SetPaperSize(DMPAPER_LEGAL);
    printer.SetPaperBin(DriverSettings(L"Kantoor").Offered(DC_BINS).back());
    printer.SetDocumentTitle("Proefblad voor Zoë");
    ShowMargins(printer);

    Samples samples(printer);
    const std::vector<machine::FontSpec> fonts = {
        Small, {"Tahoma", 9, false}, {"Tahoma", 12, true}, {"OCR-B", 9.96, false}, {"OCR-B", 10, false}};
    double y = 101.3;
    for (const machine::FontSpec& font : fonts) {
        samples.Text(33.7, y, "NL12INGB0001234567+0000000000000000<" + std::string(24, '8') + " einde", font);
        y += 333.3;
    }
    samples.Text(1000.9, y, "Zoë Müller-Ångström €", Small);
    samples.Line(567, 9000, 5670, 9000, 0);
    samples.NewPage();
    // A text may lie anywhere, also where no printer can reach, and the rest is printed all the same.
    printer.Page().DrawText(1e300, 0, "nowhere", Small);
    printer.Page().DrawText(std::numeric_limits<double>::quiet_NaN(), 0, "nowhere", Small);
    printer.Page().DrawText(0, 12000, std::string(20000, 'x'), Small);
    printer.Page().DrawLine(-1e300, 0, 1e300, std::numeric_limits<double>::infinity(), 0);
    samples.Text(4321.1, 2345.6, "tweede", Small);
    printer.Page().EndDocument();
}

void PrintOnItsSide(WinPrinter& printer) {
    printer.SetOrientation(DMORIENT_LANDSCAPE);
    printer.SetDocumentTitle("Liggend");
    ShowMargins(printer);
    Samples samples(printer);
    samples.Text(0, 0, "hoek", Small);
    samples.Text(14321.1, 9876.5, "verder", {"Tahoma", 12, true});
    printer.Page().EndDocument();
}

} // namespace

void PrintSamples() {
    WinPrinters printers;
    WinPrinter printer(printers, NothingToTell);
    PrintUpright(printer);
}

void PrintOnItsSide() {
    WinPrinters printers;
    WinPrinter printer(printers, NothingToTell);
    PrintOnItsSide(printer);
}
