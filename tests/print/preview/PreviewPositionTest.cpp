// A text on the screen stands where the same call puts it on paper.
//
// What a preview draws is drawn once more into a PDF, which poppler turns into a picture of the screen's
// resolution. The ink of each text and each line is then looked for in that picture and in the one of the
// window.
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "composition/DocumentRun.h"
#include "composition/PrinterMeasures.h"
#include "composition/RunHost.h"
#include "desktop/qt/PdfDocument.h"
#include "desktop/qt/QtCanvas.h"
#include "machine/SeededRandom.h"
#include "print/preview/Ink.h"
#include "print/preview/NotedBitmaps.h"
#include "support/StoredSettings.h"
#include "testdata/Tables.h"
#include "unit/desktop/qt/PreviewFixture.h"

namespace {

constexpr double TwipsPerInch = 1440;
constexpr double FinestDensity = 480; // dots to the inch
constexpr double TwipsPerMillimetre = TwipsPerInch / 25.4;

/// How far a text or a line may be from its place on paper, in dots of the window's picture: the screen has
/// the base line of a text on a whole one.
constexpr double MostAway = 1;

/// How much wider or higher its ink may be, in dots of 96 to the inch: one. Of a picture twice as fine these
/// are two, as a letter's edge may be a grey dot more at either end.
constexpr double MostLarger = TwipsPerInch / 96;

/// A sheet of paper in a file.
class PaperDevice final : public desktop::qt::PageDevice {
  public:
    PaperDevice(QIODevice& file, const desktop::qt::Sheet& sheet) : document_(file, "Proef", sheet) {}

    QPainter* Painter() override { return &document_.Painter(); }
    void NewPage() override {}
    void EndDocument() override { document_.End(); }
    double LineWidth() override { return 12; }

  private:
    desktop::qt::PdfDocument document_;
};

/// What the composition asks of the forms, with a preview in its real window.
class Host final : public composition::RunHost {
  public:
    Host(preview::PrintPreview& preview, std::function<void()> show)
        : preview_(preview), show_(std::move(show)) {}

    std::string CountText() override { return "3"; }
    void SetCountText(const std::string&) override {}
    void UpdatePercentage(std::int16_t) override {}
    void OpenPreview(std::int16_t fase) override { preview_.OpenPreview(fase); }
    void ShowPreview() override { show_(); }

  private:
    preview::PrintPreview& preview_;
    std::function<void()> show_;
};

/// A document of the program.
struct Document {
    const char* name;
    std::int16_t number;
    std::int16_t type;
    bool lines;

    friend void PrintTo(const Document& document, std::ostream* out) { *out << document.name; }
};

class PreviewPositionTest : public PreviewTest, public testing::WithParamInterface<Document> {
  protected:
    PreviewPositionTest() {
        // A sheet of A4 at 600 dots to the inch, whose printable area begins 16 and 20 dots of 96 to the inch
        // in.
        memory::PrintQueue& queue = memory.printers.Queue(0);
        queue.Sheet = {4960, 7016};
        queue.Printable = {4760, 6816};
        queue.Offset = {100, 125};
        paperSheet = {4960 * 2.4, 7016 * 2.4, 100 * 2.4, 125 * 2.4};
        state.SettingsKey = "Software\\Ondor\\Proef";
        memory.registry.CreateKey(state.SettingsKey);
        state.TwipsPerCm = 567;
        state.LeftMargin = 450;
        state.PersonTable = &testdata::PersonTable();
        state.AccountTable = &testdata::AccountTable();
        state.AcceptgiroType = GetParam().type;
        state.GMUContractVorm = 32;
        state.GMUVerkeer = true;
        state.GMUFontName = "OCR-B";
        state.GMUFontSize = "10";
        state.GMUServiceNr = "4711";
        state.IncassantAfdrukken = true;
        state.IncassantBegunstigde = "Stichting Voorbeeld";
        state.IncassantAdres = "Dorpsstraat 12";
        state.IncassantPostCode = "1234AB";
        state.IncassantWoonplaats = "Proefdorp";
        state.IncassantBankGiro = "NL13ABNA0500000018";
    }

    /// Draws the document on the screen, and once more on paper.
    void DrawBoth() {
        machine::SeededRandom chance(20260315);
        machine::Platform all{desktop,      memory.registry,   memory.locale,   memory.clock,
                              chance,       memory.spooler,    memory.printers, memory.printer,
                              notedBitmaps, desktop.Windows(), memory.fonts};
        preview::PrintPreview shown(session, all, state, printer);
        Host host(shown, [&] {
            window::WhenShown("frmPrintPreview", [&] {
                windowPicture = Widget("pictCurrentPage")->grab().toImage();
                window::Key(Qt::Key_Escape);
            });
            shown.Show();
        });
        composition::LeesPrinterMaten(state, all);
        support::StoreRunSettings(memory.registry, state);
        composition::ComposeDocument(state, all, printer, host,
                                     {.iMethod = GetParam().number, .blnPrintPreview = true});
        perTwip_ = desktop::qt::DotsPerTwip() * windowPicture.devicePixelRatio();
        windowPicture.setDevicePixelRatio(1);
        DrawPaper();
    }

    /// The parts of the document that stand further than so many dots from where the paper has them, or are
    /// of another size.
    std::vector<std::string> Misplaced(const QImage& window, double away) {
        std::vector<std::string> misplaced;
        int compared = 0;
        for (const Call& call : notedBitmaps.Calls) {
            const std::optional<QRect> area = AreaOf(call);
            if (!area) {
                continue;
            }
            const QRect onPaper = area->translated(Dots(paperSheet.OriginX), Dots(paperSheet.OriginY));
            if (!paperPicture.rect().contains(onPaper)) { // it runs off the sheet
                continue;
            }
            ++compared;
            const std::string name = call.text.empty() ? "line" : call.text;
            const std::optional<Ink> seen = InkIn(window, *area);
            const std::optional<Ink> printed = InkIn(paperPicture, onPaper);
            if (!seen || !printed) {
                misplaced.push_back(name + " is missing");
                continue;
            }
            const double dx = printed->x - paperSheet.OriginX * perTwip_ - seen->x;
            const double dy = printed->y - paperSheet.OriginY * perTwip_ - seen->y;
            worst = std::max({worst, std::abs(dx), std::abs(dy)});
            const int wider = printed->Width() - seen->Width();
            const int higher = printed->Height() - seen->Height();
            worstSize = std::max({worstSize, std::abs(wider), std::abs(higher)});
            if (std::abs(dx) > away || std::abs(dy) > away || std::abs(wider) > Dots(MostLarger) ||
                std::abs(higher) > Dots(MostLarger)) {
                misplaced.push_back(name + ": " + std::to_string(dx) + " across, " + std::to_string(dy) +
                                    " down, " + std::to_string(wider) + " wider, " + std::to_string(higher) +
                                    " higher");
            }
        }
        EXPECT_GE(compared, 10);
        return misplaced;
    }

    /// The window's picture with all of it moved by so many dots.
    QImage Moved(const QPoint& shift) const {
        QImage moved(windowPicture.size(), QImage::Format_RGB32);
        moved.fill(Qt::white);
        QPainter painter(&moved);
        painter.drawImage(shift, windowPicture);
        return moved;
    }

    NotedBitmaps notedBitmaps;
    QImage windowPicture;
    QImage paperPicture;
    desktop::qt::Sheet paperSheet;
    double worst = 0; // dots
    int worstSize = 0;

  private:
    /// Measures texts, and draws nothing.
    class Measures final : public desktop::qt::PageDevice {
      public:
        machine::TextSize MeasureText(const std::string& text, const machine::FontSpec& font) {
            return canvas_.MeasureText(text, font);
        }

      private:
        QPainter* Painter() override { return nullptr; }
        void NewPage() override {}
        void EndDocument() override {}
        double LineWidth() override { return 0; }

        desktop::qt::QtCanvas canvas_{*this};
    };

    void DrawPaper() {
        QTemporaryDir folder;
        const QString name = folder.filePath("proef.pdf");
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        PaperDevice device(file, paperSheet);
        desktop::qt::QtCanvas canvas(device);
        for (const Call& call : notedBitmaps.Calls) {
            if (call.text.empty()) {
                canvas.DrawLine(call.x1, call.y1, call.x2, call.y2, call.colour);
            } else {
                canvas.DrawText(call.x1, call.y1, call.text, call.font);
            }
        }
        canvas.EndDocument();
        file.close();
        // At few dots to the inch poppler puts letters on whole ones, so it draws finer and the dots are put
        // together.
        const int finer =
            std::max(1, static_cast<int>(std::lround(FinestDensity / (perTwip_ * TwipsPerInch))));
        const QString density = QString::number(finer * perTwip_ * TwipsPerInch, 'f', 6);
        ASSERT_EQ(QProcess::execute("pdftoppm",
                                    {"-gray", "-singlefile", "-r", density, name, folder.filePath("proef")}),
                  0);
        const QImage fine(folder.filePath("proef.pgm"));
        const QSize size = fine.size() / finer;
        paperPicture = fine.copy(QRect(QPoint(0, 0), size * finer))
                           .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        ASSERT_FALSE(paperPicture.isNull());
    }

    int Dots(double twips) const { return static_cast<int>(std::lround(twips * perTwip_)); }

    /// Where a text or the end of a line is, with room for a dot around; nothing where it has no place for
    /// itself.
    std::optional<QRect> AreaOf(const Call& call) const {
        const QRect own = BoxOf(call);
        QRect area = own;
        for (const Call& other : notedBitmaps.Calls) {
            const QRect box = BoxOf(other);
            if (&other == &call || !box.intersects(area)) {
                continue;
            }
            if (!call.text.empty() || other.text.empty()) {
                return std::nullopt;
            }
            area.setLeft(box.right() + 1); // a line beside a text: what is behind the text
        }
        return area.isEmpty() ? std::nullopt : std::optional(area);
    }

    QRect BoxOf(const Call& call) const {
        const std::string drawn = call.text.substr(0, call.text.find_last_not_of(' ') + 1);
        const double right =
            call.text.empty() ? call.x2 : call.x1 + measures_.MeasureText(drawn, call.font).Width;
        const int beside = Dots(0.25 * TwipsPerMillimetre);
        const int above = call.text.empty() ? 2 * beside : 0;
        const QRect box(QPoint(Dots(call.x1), Dots(call.y1)), QPoint(Dots(right), Dots(call.y2)));
        return box.adjusted(-beside, -above, beside, above);
    }

    mutable Measures measures_;
    double perTwip_ = 0;
};

TEST_P(PreviewPositionTest, TheWindowShowsEachTextWhereThePaperHasIt) {
    DrawBoth();
    const auto isLine = [](const Call& call) { return call.text.empty(); };
    EXPECT_EQ(std::any_of(notedBitmaps.Calls.begin(), notedBitmaps.Calls.end(), isLine), GetParam().lines);
    EXPECT_THAT(Misplaced(windowPicture, MostAway), testing::IsEmpty());
    RecordProperty("worstdots", std::to_string(worst));
    RecordProperty("worstsize_dots", worstSize);
}

// But for a few parts: what leaves its own area is not looked for.
TEST_P(PreviewPositionTest, AShiftOfTwoDotsWouldBeNoticed) {
    DrawBoth();
    const std::size_t all = Misplaced(windowPicture, -1).size();
    for (const QPoint& shift : {QPoint(2, 0), QPoint(-2, 0), QPoint(0, 2), QPoint(0, -2)}) {
        EXPECT_GE(Misplaced(Moved(shift), MostAway).size(), all * 4 / 5) << shift.x() << ", " << shift.y();
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, PreviewPositionTest,
                         testing::Values(Document{"NarrowForms", composition::DocumentTestForms, 1, false},
                                         Document{"WideForms", composition::DocumentTestForms, 2, false},
                                         Document{"FormUnderALetter", composition::DocumentTestForms, 3,
                                                  false},
                                         Document{"NameList", composition::DocumentNameList, 1, true},
                                         Document{"Report", composition::DocumentCalibration, 1, true}),
                         [](const auto& row) { return row.param.name; });

} // namespace
