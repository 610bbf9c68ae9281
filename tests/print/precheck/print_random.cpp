// Prints small batches with random settings into one PDF file, a batch behind the other, each on a sheet of
// its own kind, and tells beside it, as JSON, which texts were drawn and what the precheck has said of each
// batch. check_random.py measures the file and holds it against that.
//
// print_random FOLDER FIRST COUNT

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "base/Resume.h"
#include "base/Units.h"
#include "composition/DocumentRun.h"
#include "composition/FormField.h"
#include "composition/OpenPrinter.h"
#include "composition/PrinterMeasures.h"
#include "desktop/qt/PdfPrinter.h"
#include "desktop/qt/QtPrintFonts.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "machine/Printer.h"
#include "memory/MemoryPlatform.h"
#include "precheck/Precheck.h"
#include "precheck/SteadyChance.h"
#include "print/precheck/RandomSettings.h"
#include "state/AppState.h"
#include "state/Settings.h"
#include "support/FakeRunHost.h"
#include "unit/desktop/cups/FakeQueue.h"

namespace random_print {
namespace {

constexpr machine::DateTime Moment = {2026, 3, 15, 10, 20, 30, 400};

double Millimetres(double twips) {
    return twips / base::TwipsPerInch * base::MillimetresPerInch;
}

QString TextOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

class FileOfAll final : public desktop::cups::PrintJob {
  public:
    explicit FileOfAll(const QString& path) : file_(path) { file_.open(QIODevice::WriteOnly); }

    int Write(std::string_view bytes) override {
        const auto size = static_cast<qint64>(bytes.size());
        return file_.write(bytes.data(), size) == size ? 0 : EIO;
    }
    void Finish() override { file_.close(); }

  private:
    QFile file_;
};

/// A queue whose one job is the file.
class FileQueue final : public desktop::cups::FakeQueue {
  public:
    explicit FileQueue(QString path) : path_(std::move(path)) {}

    void Lay(const std::vector<desktop::cups::Paper>& papers) {
        PaperList = papers;
        Settings.PaperId = papers.front().Id;
    }
    std::unique_ptr<desktop::cups::PrintJob> BeginJob(const std::string&, const desktop::cups::Paper&,
                                                      const desktop::cups::Bin*) override {
        return std::make_unique<FileOfAll>(path_);
    }

  private:
    QString path_;
};

/// The printer as a run draws on it, which notes what each text is and where it goes by page. Of places it
/// knows nothing: those are the file's.
class NotedSurface final : public composition::PrintSurface, private machine::Canvas {
  public:
    explicit NotedSurface(machine::Printer& printer) : PrintSurface(printer.Drawing), printer_(printer) {}

    int PagesEnded = 0;
    QJsonArray Texts;

    void BeginForm(std::int16_t positie) override { place_ = positie; }
    void BeginField(const composition::FormField& field, std::string_view) override {
        field_ = TextOf(field.Name);
    }

  protected:
    machine::Canvas& Page() override { return *this; }

  private:
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return printer_.Page().MeasureText(text, font);
    }
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override {
        Texts.append(QJsonArray{PagesEnded, place_, field_, TextOf(text)});
        printer_.Page().DrawText(x, y, text, font);
    }
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override {
        printer_.Page().DrawLine(x1, y1, x2, y2, colour);
    }
    void NewPage() override {
        ++PagesEnded;
        printer_.Page().NewPage();
    }
    void EndDocument() override { printer_.Page().EndDocument(); }

    machine::Printer& printer_;
    std::int16_t place_ = 0;
    QString field_;
};

QJsonArray PlacesOf(const std::vector<precheck::SheetPlace>& places) {
    QJsonArray list;
    for (const precheck::SheetPlace& place : places) {
        list.append(QJsonArray{Millimetres(place.Left), Millimetres(place.Top), Millimetres(place.Right),
                               Millimetres(place.Bottom)});
    }
    return list;
}

QJsonArray TextsOf(const precheck::Finding& finding) {
    QJsonArray list;
    for (const precheck::WrongPlace& text : finding.Texts) {
        list.append(QJsonArray{TextOf(text.Name), text.Millimetres});
    }
    return list;
}

/// What is said of texts off the sheet and over each other, and all texts of each page that it is said of.
QJsonObject SaidOf(const precheck::Findings& findings) {
    QJsonArray said;
    QJsonArray pages;
    for (const precheck::Finding& finding : findings) {
        if (finding.Code == "sheet.text-off" || finding.Code == "sheet.texts-overlap") {
            const QJsonArray page = PlacesOf(finding.Sketch.Texts);
            if (!pages.contains(page)) {
                pages.append(QJsonValue(page));
            }
            said.append(QJsonObject{{"code", TextOf(finding.Code)},
                                    {"sentence", TextOf(finding.Wrong)},
                                    {"texts", TextsOf(finding)},
                                    {"wrong", PlacesOf(finding.Sketch.Wrong)}});
        }
    }
    return {{"findings", said}, {"pages", pages}};
}

/// The batches of a file, one behind the other.
class Batches {
  public:
    explicit Batches(const QString& path)
        : queue_(new FileQueue(path)),
          printers_(std::make_unique<desktop::qt::PdfPrinter>([](const QString&) { return std::nullopt; },
                                                              path + ".conf"),
                    [this] {
                        desktop::cups::FoundQueues found;
                        found.Queues.emplace_back(queue_);
                        found.Default = 0;
                        found.Answered = true;
                        return found;
                    }),
          printer_(printers_, [](const std::string& text) { std::fputs(text.c_str(), stderr); }),
          surface_(printer_) {
        memory_.clock.Set(Moment);
        printers_.Refresh();
    }

    QJsonObject Print(std::uint64_t number) {
        const RandomSettings settings = DrawSettings(number);
        memory::MemoryRegistry registry;
        StoreSettings(registry, settings);
        memory_.locale.SetDecimalMark(settings.DecimalMark);
        queue_->Lay(settings.Papers);

        machine::Platform services = Services(registry);
        const precheck::ChosenPrinter chosen = precheck::ChooseForRun(
            settings.State, services, 0, settings.Papers.front().Id, settings.Intent.Orientation);
        const precheck::Findings findings = precheck::CheckDocument(settings.State, services, settings.Intent,
                                                                    chosen.Sheet, chosen.MeasuredSheet);
        return {{"number", static_cast<qint64>(number)},
                {"type", settings.State.AcceptgiroType},
                {"sheet", SheetOf(settings)},
                {"said", SaidOf(findings)},
                {"texts", Run(settings, services)}};
    }

    void End() { surface_.EndDoc(); }

  private:
    machine::Platform Services(memory::MemoryRegistry& registry) {
        chance_ = {};
        return {memory_.desktop, registry,  memory_.locale, memory_.clock,   chance_,
                memory_.spooler, printers_, printer_,       memory_.bitmaps, memory_.desktop.Windows(),
                fonts_};
    }

    /// Prints as ComposeDocument does, only that the document goes on. The texts that were drawn.
    QJsonArray Run(const RandomSettings& settings, machine::Platform& services) {
        state::AppState state = settings.State;
        state::LaadInstellingen(state, services.Registry, false);
        support::FakeRunHost host(state, services);
        printer_.Assign(0);
        composition::LeesPrinterMaten(state, services);
        if (state.OverrulePaperSize && !state.MatrixPrinter) {
            base::Resume([&] { host.printer.SetPaperSize(machine::PaperLegal); });
        }
        if (begun_) {
            surface_.Newpage();
        }
        begun_ = true;
        surface_.Texts = {};
        composition::OpenPrinter(state, services, host.printer);
        state.Surface = &surface_;
        composition::DrawDocument(state, services, host, settings.Intent.Document, settings.Intent.Forms,
                                  settings.Intent.Copies);
        return surface_.Texts;
    }

    static QJsonArray SheetOf(const RandomSettings& settings) {
        const desktop::cups::TurnedSheet sheet =
            desktop::cups::Turned(PrintedPaper(settings), settings.Intent.Orientation);
        return {Millimetres(sheet.Width), Millimetres(sheet.Height), Millimetres(sheet.Left),
                Millimetres(sheet.Top),   Millimetres(sheet.Right),  Millimetres(sheet.Bottom)};
    }

    memory::MemoryPlatform memory_;
    precheck::SteadyChance chance_;
    desktop::qt::QtPrintFonts fonts_;
    FileQueue* queue_; // belongs to the printers
    desktop::qt::QtPrinters printers_;
    desktop::qt::QtPrinter printer_;
    NotedSurface surface_;
    bool begun_ = false;
};

} // namespace
} // namespace random_print

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("print_random FOLDER FIRST COUNT\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const std::uint64_t first = std::strtoull(argv[2], nullptr, 10);
    const std::uint64_t count = std::strtoull(argv[3], nullptr, 10);

    random_print::Batches batches(folder + "/random.pdf");
    QJsonArray record;
    for (std::uint64_t number = first; number < first + count; ++number) {
        record.append(batches.Print(number));
    }
    batches.End();

    QFile file(folder + "/random.json");
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(QJsonDocument(record).toJson(QJsonDocument::Compact)) < 0) {
        return 1;
    }
    return 0;
}
