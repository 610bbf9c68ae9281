// Prints a batch to a PDF file and tells time and memory as JSON.
//
// pdf_batch program|floor|glyphs|apart|empty FORMS FILE
//
// "program" goes through the whole run. "floor" is the least that a program on the same toolkit must do: it
// makes the same texts at the same places with the toolkit's plainest calls, and nothing else. "glyphs" is
// the toolkit's part of the program: it puts the same glyphs into a file, found and placed before the clock
// runs. "apart" is the run as the program drew it at first, each text by itself. "empty" is a PDF of one page
// with nothing on it.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include "bench/Batch.h"
#include "bench/Measured.h"
#include "desktop/qt/Fonts.h"
#include "desktop/qt/GlyphTable.h"
#include "desktop/qt/PageDevice.h"
#include "desktop/qt/PageUnits.h"
#include "desktop/qt/PdfDocument.h"
#include "desktop/qt/PdfPrinter.h"
#include "desktop/qt/QtCanvas.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"

namespace {

constexpr int RecordedForms = 249; // whole sheets
constexpr int RecordedLongBatch = 1500;
constexpr int FormsOnSheet = 3;

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

/// A printer for a run that measures as another does, and draws its own way.
class Stand : public machine::Printer {
  public:
    explicit Stand(machine::Printer& measures) : measures_(measures) { Drawing = measures.Drawing; }

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

  protected:
    machine::Canvas& Measures() { return measures_.Page(); }

  private:
    machine::Printer& measures_;
};

/// A PDF with nothing between it and the toolkit.
class PlainPdf {
  public:
    explicit PlainPdf(const QString& file) : writer_(file) {
        writer_.setResolution(desktop::qt::UnitsPerInch);
        writer_.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
        painter_.begin(&writer_);
    }
    QPainter& Painter() { return painter_; }
    void NewPage() { writer_.newPage(); }

  private:
    QPdfWriter writer_;
    QPainter painter_;
};

struct RecordedText {
    QPointF at;
    QString text;
    std::size_t font;
};

/// The texts of a run, for the floor to draw again.
class Recording final : public Stand, private machine::Canvas {
  public:
    using Stand::Stand;

    std::vector<std::vector<RecordedText>> Pages{1};
    std::vector<QFont> Fonts;

    machine::Canvas& Page() override { return *this; }

  private:
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return Measures().MeasureText(text, font);
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
        Pages.back().push_back({QPointF(x, y) * desktop::qt::UnitsPerTwip,
                                QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), index});
    }
    void DrawLine(double, double, double, double, std::int32_t) override {}
    void NewPage() override { Pages.emplace_back(); }
    void EndDocument() override {}

    std::vector<machine::FontSpec> specs_;
};

void PrintFloor(const Recording& recording, int forms, const QString& file) {
    PlainPdf pdf(file);
    const int pages = (forms + FormsOnSheet - 1) / FormsOnSheet;
    for (int page = 0; page < pages; ++page) {
        if (page > 0) {
            pdf.NewPage();
        }
        for (const RecordedText& text :
             recording.Pages[static_cast<std::size_t>(page) % recording.Pages.size()]) {
            pdf.Painter().setFont(recording.Fonts[text.font]);
            pdf.Painter().drawText(text.at, text.text);
        }
    }
}

/// The glyphs that a run puts on its pages, those that follow on each other in one face together.
class GlyphRecording final : public Stand, private desktop::qt::PageDevice {
  public:
    using Stand::Stand;

    struct Run {
        QRawFont Face;
        std::vector<quint32> Glyphs;
        std::vector<QPointF> Places;
    };
    std::vector<std::vector<Run>> Pages{1};

    machine::Canvas& Page() override { return canvas_; }

  private:
    QPainter* Painter() override { return nullptr; }
    bool Begin() override { return true; }
    void DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                    std::span<const QPointF> places) override {
        std::vector<Run>& page = Pages.back();
        if (page.empty() || !(page.back().Face == face)) {
            page.push_back({face, {}, {}});
        }
        Run& run = page.back();
        run.Glyphs.insert(run.Glyphs.end(), glyphs.begin(), glyphs.end());
        for (const QPointF& place : places) {
            run.Places.emplace_back(std::round(place.x()), std::round(place.y()));
        }
    }
    void NewPage() override { Pages.emplace_back(); }
    void EndDocument() override {}
    double LineWidth() override { return 0; }

    desktop::qt::QtCanvas canvas_{static_cast<desktop::qt::PageDevice&>(*this)};
};

/// Into a document as the program makes it. Beyond the recorded pages those of their second half come again:
/// a long batch runs out of names, so its later forms have less on them.
void PrintGlyphs(GlyphRecording& recording, int forms, const QString& name) {
    QFile file(name);
    file.open(QIODevice::WriteOnly);
    const desktop::qt::Sheet sheet{recording.Width(), recording.Height(), 0, 0};
    desktop::qt::PdfDocument pdf(file, "", sheet);
    const auto pages = static_cast<std::size_t>((forms + FormsOnSheet - 1) / FormsOnSheet);
    const std::size_t half = recording.Pages.size() / 2;
    for (std::size_t page = 0; page < pages; ++page) {
        if (page > 0) {
            pdf.NewPage(sheet);
        }
        const std::size_t from = page < recording.Pages.size() ? page : half + page % half;
        for (const GlyphRecording::Run& run : recording.Pages[from]) {
            desktop::qt::DrawGlyphRun(pdf.Painter(), run.Face, run.Glyphs, run.Places);
        }
    }
    pdf.End();
}

/// Draws each text by itself, with all its blanks and at the place that it comes to.
class OneByOne final : public Stand, private machine::Canvas {
  public:
    OneByOne(machine::Printer& measures, const QString& file) : Stand(measures), pdf_(file) {}

    machine::Canvas& Page() override { return *this; }

  private:
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return Measures().MeasureText(text, font);
    }
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override {
        auto table = std::find_if(tables_.begin(), tables_.end(),
                                  [&font](const auto& each) { return each->Spec() == font; });
        if (table == tables_.end()) {
            table = tables_.insert(tables_.end(), std::make_unique<desktop::qt::GlyphTable>(font));
        }
        std::vector<quint32> glyphs;
        std::vector<QPointF> places;
        QPointF at(x * desktop::qt::UnitsPerTwip, y * desktop::qt::UnitsPerTwip + (*table)->Ascent());
        for (const char character : text) { // the batch has no letter beyond these
            const desktop::qt::GlyphTable::Glyph& glyph = (*table)->Of(static_cast<unsigned char>(character));
            glyphs.push_back(glyph.Index);
            places.push_back(at);
            at.rx() += glyph.Advance;
        }
        desktop::qt::DrawGlyphRun(pdf_.Painter(), (*table)->Face(0), glyphs, places);
    }
    void DrawLine(double, double, double, double, std::int32_t) override {}
    void NewPage() override { pdf_.NewPage(); }
    void EndDocument() override {}

    PlainPdf pdf_;
    std::vector<std::unique_ptr<desktop::qt::GlyphTable>> tables_;
};

void PrintEmpty(const QString& file) {
    QPdfWriter writer(file);
    const QPainter painter(&writer);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("pdf_batch program|floor|glyphs|apart|empty FORMS FILE\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (std::string(argv[1]) == "empty") {
        PrintEmpty(QString::fromLocal8Bit(argv[3]));
        return 0;
    }
    const QTemporaryDir folder;
    const std::string_view way = argv[1];
    const int forms = static_cast<int>(std::strtol(argv[2], nullptr, 10));
    const QString file = QString::fromLocal8Bit(argv[3]);

    desktop::qt::LoadPackagedFonts();
    desktop::qt::QtPrinters printers = PrintersFor(QString(), folder.path());
    desktop::qt::QtPrinter measures(printers, [](const std::string&) {});
    Recording texts(measures);
    GlyphRecording glyphs(measures);
    if (way == "floor") {
        bench::Batch(printers, texts).Print(RecordedForms);
    } else if (way == "glyphs") {
        bench::Batch(printers, glyphs).Print(std::min(forms, RecordedLongBatch));
    }
    bench::TellMeasures([&] {
        if (way == "floor") {
            PrintFloor(texts, forms, file);
        } else if (way == "glyphs") {
            PrintGlyphs(glyphs, forms, file);
        } else if (way == "apart") {
            OneByOne printer(measures, file);
            bench::Batch(printers, printer).Print(forms);
        } else {
            PrintWithProgram(forms, file, folder.path());
        }
    });
    return 0;
}
