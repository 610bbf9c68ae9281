// Prints a batch to a PDF file and tells time and memory as JSON.
//
// pdf_batch program|floor|empty FORMS FILE
//
// "program" goes through the whole run. "floor" is the least that a program on the same toolkit must do: it
// makes the same texts at the same places with the toolkit's plainest calls, and nothing else. "empty" is a
// PDF of one page with nothing on it.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <QApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include "bench/Batch.h"
#include "bench/Measured.h"
#include "desktop/qt/Fonts.h"
#include "desktop/qt/PdfPrinter.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"

namespace {

constexpr int RecordedForms = 249; // whole sheets
constexpr int FormsOnSheet = 3;
constexpr double UnitsPerTwip = 5;

desktop::qt::QtPrinters PrintersFor(const QString& file, const QString& folder) {
    return desktop::qt::QtPrinters(std::make_unique<desktop::qt::PdfPrinter>(
                                       [file](const QString&) { return file; }, folder + "/settings"),
                                   [] { return desktop::cups::FoundQueues{}; });
}

void PrintWithProgram(int forms, const QString& file, const QString& folder) {
    desktop::qt::QtPrinters printers = PrintersFor(file, folder);
    desktop::qt::QtPrinter printer(printers, [](const std::string&) {});
    bench::Batch(printers, printer).Print(forms);
}

struct RecordedText {
    QPointF at;
    QString text;
    std::size_t font;
};

/// What a run draws, for the floor to draw again.
class Recording final : public machine::Printer, private machine::Canvas {
  public:
    explicit Recording(machine::Printer& measures) : measures_(measures) { Drawing = measures.Drawing; }

    std::vector<std::vector<RecordedText>> Pages{1};
    std::vector<QFont> Fonts;

    void Assign(int) override {}
    std::string DeviceName() override { return measures_.DeviceName(); }
    std::string Port() override { return measures_.Port(); }
    std::int16_t Orientation() override { return measures_.Orientation(); }
    void SetOrientation(std::int16_t) override {}
    std::int16_t PaperSize() override { return measures_.PaperSize(); }
    void SetPaperSize(std::int16_t) override {}
    std::int16_t PaperBin() override { return measures_.PaperBin(); }
    void SetPaperBin(std::int16_t) override {}
    std::int16_t Copies() override { return 1; }
    double Width() override { return measures_.Width(); }
    double Height() override { return measures_.Height(); }
    double ScaleLeft() override { return 0; }
    double ScaleTop() override { return 0; }
    double ScaleWidth() override { return measures_.ScaleWidth(); }
    double ScaleHeight() override { return measures_.ScaleHeight(); }
    int GetDeviceCaps(int item) override { return measures_.GetDeviceCaps(item); }
    void SetDocumentTitle(const std::string&) override {}
    void Abandon() override {}
    machine::Canvas& Page() override { return *this; }

  private:
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return measures_.Page().MeasureText(text, font);
    }
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override {
        std::size_t index = 0;
        while (index < specs_.size() && !(specs_[index] == font)) {
            ++index;
        }
        if (index == specs_.size()) {
            specs_.push_back(font);
            Fonts.push_back(desktop::qt::DesignFont(font));
        }
        Pages.back().push_back({QPointF(x, y) * UnitsPerTwip,
                                QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), index});
    }
    void DrawLine(double, double, double, double, std::int32_t) override {}
    void NewPage() override { Pages.emplace_back(); }
    void EndDocument() override {}

    machine::Printer& measures_;
    std::vector<machine::FontSpec> specs_;
};

void PrintFloor(const Recording& recording, int forms, const QString& file) {
    QPdfWriter writer(file);
    writer.setResolution(7200);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
    QPainter painter(&writer);
    const int pages = (forms + FormsOnSheet - 1) / FormsOnSheet;
    for (int page = 0; page < pages; ++page) {
        if (page > 0) {
            writer.newPage();
        }
        for (const RecordedText& text :
             recording.Pages[static_cast<std::size_t>(page) % recording.Pages.size()]) {
            painter.setFont(recording.Fonts[text.font]);
            painter.drawText(text.at, text.text);
        }
    }
}

void PrintEmpty(const QString& file) {
    QPdfWriter writer(file);
    const QPainter painter(&writer);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("pdf_batch program|floor|empty FORMS FILE\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (std::string(argv[1]) == "empty") {
        PrintEmpty(QString::fromLocal8Bit(argv[3]));
        return 0;
    }
    const QTemporaryDir folder;
    const bool isFloor = std::string(argv[1]) == "floor";
    const int forms = static_cast<int>(std::strtol(argv[2], nullptr, 10));
    const QString file = QString::fromLocal8Bit(argv[3]);

    desktop::qt::LoadPackagedFonts();
    desktop::qt::QtPrinters printers = PrintersFor(QString(), folder.path());
    desktop::qt::QtPrinter measures(printers, [](const std::string&) {});
    Recording recording(measures);
    if (isFloor) {
        bench::Batch(printers, recording).Print(RecordedForms);
    }
    bench::TellMeasures([&] {
        if (isFloor) {
            PrintFloor(recording, forms, file);
        } else {
            PrintWithProgram(forms, file, folder.path());
        }
    });
    return 0;
}
