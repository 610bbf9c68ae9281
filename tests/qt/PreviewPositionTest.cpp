// A text on the screen stands where the same call puts it on paper.
//
// What a preview draws is drawn once more into a PDF, which poppler turns into a picture of the screen's
// resolution. The ink of each text and each line is then looked for in that picture and in the one of the
// window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "composition/DocumentRun.h"
#include "composition/OpenPrinter.h"
#include "composition/PrinterMeasures.h"
#include "composition/RunHost.h"
#include "platform/SeededRandom.h"
#include "platform/qt/PdfDocument.h"
#include "platform/qt/QtCanvas.h"
#include "qt/PreviewFixture.h"
#include "testdata/Tables.h"

namespace {

constexpr double twipsPerInch = 1440;
constexpr double finestDensity = 480; // dots to the inch
constexpr double twipsPerMillimetre = twipsPerInch / 25.4;

/// A call of a canvas: a text, or a line if there is none. Lengths are twips.
struct Call {
    double x1;
    double y1;
    double x2;
    double y2;
    std::string text;
    platform::FontSpec font;
    std::int32_t colour;
};

/// Pages that are drawn as usual, with a note of each call on the first one.
class NotedBitmaps final : public platform::Bitmaps {
  public:
    std::vector<Call> Calls;

    std::unique_ptr<platform::OffscreenPage> CreatePage(double width, double height) override {
        return std::make_unique<Page>(bitmaps_.CreatePage(width, height), Calls);
    }

  private:
    class Page final : public platform::OffscreenPage, private platform::Canvas {
      public:
        Page(std::unique_ptr<platform::OffscreenPage> page, std::vector<Call>& calls)
            : page_(std::move(page)), calls_(calls) {}

        platform::Canvas& Drawing() override { return *this; }
        std::shared_ptr<const platform::PageBitmap> Image() override { return page_->Image(); }
        void Cls() override {
            page_->Cls();
            ++wiped_;
        }

      private:
        bool IsFirst() const { return wiped_ <= 1; } // it is wiped once before the document begins

        platform::TextSize MeasureText(std::string_view text, const platform::FontSpec& font) override {
            return page_->Drawing().MeasureText(text, font);
        }
        void DrawText(double x, double y, std::string_view text, const platform::FontSpec& font) override {
            page_->Drawing().DrawText(x, y, text, font);
            const platform::TextSize size = MeasureText(text, font);
            if (IsFirst()) {
                calls_.push_back({x, y, x + size.Width, y + size.Height, std::string(text), font, 0});
            }
        }
        void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override {
            page_->Drawing().DrawLine(x1, y1, x2, y2, colour);
            if (IsFirst()) {
                calls_.push_back({x1, y1, x2, y2, "", {}, colour});
            }
        }
        void NewPage() override { Cls(); }
        void EndDocument() override { page_->Drawing().EndDocument(); }

        std::unique_ptr<platform::OffscreenPage> page_;
        std::vector<Call>& calls_;
        int wiped_ = 0;
    };

    platform::qt::QtBitmaps bitmaps_;
};

/// A sheet of paper in a file.
class PaperDevice final : public platform::qt::PageDevice {
  public:
    PaperDevice(QIODevice& file, const platform::qt::Sheet& sheet) : document_(file, "Proef", sheet) {}

    QPainter* Painter() override { return &document_.Painter(); }
    void NewPage() override {}
    void EndDocument() override { document_.End(); }
    double LineWidth() override { return 12; }

  private:
    platform::qt::PdfDocument document_;
};

/// The dark dots of an area: how far they reach, and their centre of gravity; in dots.
struct Ink {
    int left = INT_MAX;
    int top = INT_MAX;
    int right = INT_MIN;
    int bottom = INT_MIN;
    double x = 0;
    double y = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};

std::optional<Ink> InkIn(const QImage& picture, const QRect& area) {
    constexpr int light = 225;
    Ink ink;
    double weight = 0;
    const QRect within = area.intersected(picture.rect());
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x) {
            const int grey = qGray(picture.pixel(x, y));
            if (grey < light) {
                ink.left = std::min(ink.left, x);
                ink.right = std::max(ink.right, x);
                ink.top = std::min(ink.top, y);
                ink.bottom = std::max(ink.bottom, y);
            }
            weight += 255 - grey;
            ink.x += x * (255 - grey);
            ink.y += y * (255 - grey);
        }
    }
    if (ink.left > ink.right) {
        return std::nullopt;
    }
    ink.x /= weight;
    ink.y /= weight;
    return ink;
}

/// What the composition asks of the forms, with a preview in its real window.
class Host final : public composition::RunHost {
  public:
    Host(preview::PrintPreview& preview, std::function<void()> show)
        : preview_(preview), show_(std::move(show)) {}

    std::string CountText() override { return "3"; }
    void SetCountText(const std::string&) override {}
    void LaadInstellingen() override {}
    void UpdatePercentage(std::int16_t) override {}
    void OpenPrinter() override {}
    void OpenPreview(std::int16_t fase) override { preview_.OpenPreview(fase); }
    void ShowPreview() override { show_(); }
    void HourglassOn() override {}
    void HourglassOff() override {}

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
        platform::PrintQueue& queue = memory.printers.Queue(0);
        queue.Sheet = {4960, 7016};
        queue.Printable = {4760, 6816};
        queue.Offset = {100, 125};
        sheet_ = {4960 * 2.4, 7016 * 2.4, 100 * 2.4, 125 * 2.4};
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
        platform::SeededRandom chance(20260315);
        platform::Platform all{desktop,       memory.registry,  memory.locale,   memory.clock,
                               chance,        memory.spooler,   memory.printers, memory.printer,
                               notedBitmaps_, desktop.Windows()};
        preview::PrintPreview shown(session, all, state, printer);
        Host host(shown, [&] {
            window::WhenShown("frmPrintPreview", [&] {
                window_ = Widget("pictCurrentPage")->grab().toImage();
                window::Key(Qt::Key_Escape);
            });
            shown.Show();
        });
        composition::LeesPrinterMaten(state, all);
        composition::Afdrukken(state, all, host, GetParam().number, 1, true);
        perTwip_ = platform::qt::DotsPerTwip() * window_.devicePixelRatio();
        window_.setDevicePixelRatio(1);
        DrawPaper();
    }

    /// The parts of the document that stand further than so many millimetres from where the paper has them.
    std::vector<std::string> Misplaced(const QImage& window, double tolerance) {
        std::vector<std::string> misplaced;
        int compared = 0;
        for (const Call& call : notedBitmaps_.Calls) {
            const std::optional<QRect> area = AreaOf(call);
            if (!area) {
                continue;
            }
            const QRect onPaper = area->translated(Dots(sheet_.OriginX), Dots(sheet_.OriginY));
            if (!paper_.rect().contains(onPaper)) { // it runs off the sheet
                continue;
            }
            ++compared;
            const std::string name = call.text.empty() ? "line" : call.text;
            const std::optional<Ink> seen = InkIn(window, *area);
            const std::optional<Ink> printed = InkIn(paper_, onPaper);
            if (!seen || !printed) {
                misplaced.push_back(name + " is missing");
                continue;
            }
            const double dx = printed->x - sheet_.OriginX * perTwip_ - seen->x;
            const double dy = printed->y - sheet_.OriginY * perTwip_ - seen->y;
            worst_ = std::max({worst_, std::abs(dx), std::abs(dy)});
            const int soft = Dots(0.5 * twipsPerMillimetre); // the grey edges of letters
            const double most = tolerance * twipsPerMillimetre * perTwip_;
            if (std::abs(dx) > most || std::abs(dy) > most ||
                std::abs(printed->Width() - seen->Width()) > soft ||
                std::abs(printed->Height() - seen->Height()) > soft) {
                misplaced.push_back(name + ": " + std::to_string(dx) + " across, " + std::to_string(dy) +
                                    " down, " + std::to_string(printed->Width() - seen->Width()) +
                                    " wider, " + std::to_string(printed->Height() - seen->Height()) +
                                    " higher");
            }
        }
        EXPECT_GE(compared, 10);
        return misplaced;
    }

    /// The window's picture with all of it moved by so many millimetres.
    QImage Moved(const QPointF& shift) const {
        QImage moved(window_.size(), QImage::Format_RGB32);
        moved.fill(Qt::white);
        QPainter painter(&moved);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(shift * twipsPerMillimetre * perTwip_, window_);
        return moved;
    }

    double WorstInMillimetres() const { return worst_ / perTwip_ / twipsPerMillimetre; }

    NotedBitmaps notedBitmaps_;
    QImage window_;
    QImage paper_;
    platform::qt::Sheet sheet_;

  private:
    /// Measures texts, and draws nothing.
    class Measures final : public platform::qt::PageDevice {
      public:
        platform::TextSize MeasureText(const std::string& text, const platform::FontSpec& font) {
            return canvas_.MeasureText(text, font);
        }

      private:
        QPainter* Painter() override { return nullptr; }
        void NewPage() override {}
        void EndDocument() override {}
        double LineWidth() override { return 0; }

        platform::qt::QtCanvas canvas_{*this};
    };

    void DrawPaper() {
        QTemporaryDir folder;
        const QString name = folder.filePath("proef.pdf");
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        PaperDevice device(file, sheet_);
        platform::qt::QtCanvas canvas(device);
        for (const Call& call : notedBitmaps_.Calls) {
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
            std::max(1, static_cast<int>(std::lround(finestDensity / (perTwip_ * twipsPerInch))));
        const QString density = QString::number(finer * perTwip_ * twipsPerInch, 'f', 6);
        ASSERT_EQ(QProcess::execute("pdftoppm",
                                    {"-gray", "-singlefile", "-r", density, name, folder.filePath("proef")}),
                  0);
        const QImage fine(folder.filePath("proef.pgm"));
        const QSize size = fine.size() / finer;
        paper_ = fine.copy(QRect(QPoint(0, 0), size * finer))
                     .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        ASSERT_FALSE(paper_.isNull());
    }

    int Dots(double twips) const { return static_cast<int>(std::lround(twips * perTwip_)); }

    /// Where a text or the end of a line is, with room for a dot around; nothing where it has no place for
    /// itself.
    std::optional<QRect> AreaOf(const Call& call) const {
        const QRect own = BoxOf(call);
        QRect area = own;
        for (const Call& other : notedBitmaps_.Calls) {
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
        const int beside = Dots(0.25 * twipsPerMillimetre);
        const int above = call.text.empty() ? 2 * beside : 0;
        const QRect box(QPoint(Dots(call.x1), Dots(call.y1)), QPoint(Dots(right), Dots(call.y2)));
        return box.adjusted(-beside, -above, beside, above);
    }

    mutable Measures measures_;
    double perTwip_ = 0;
    double worst_ = 0;
};

/// The screen has the base line of a text on a whole dot, so half a dot is lost: 0.13 mm at 96 to the inch.
constexpr double tolerance = 0.2; // millimetres

TEST_P(PreviewPositionTest, TheWindowShowsEachTextWhereThePaperHasIt) {
    DrawBoth();
    const auto isLine = [](const Call& call) { return call.text.empty(); };
    EXPECT_EQ(std::any_of(notedBitmaps_.Calls.begin(), notedBitmaps_.Calls.end(), isLine), GetParam().lines);
    EXPECT_THAT(Misplaced(window_, tolerance), testing::IsEmpty());
    RecordProperty("worst_mm", std::to_string(WorstInMillimetres()));
}

// But for a few parts: what leaves its own area is not looked for.
TEST_P(PreviewPositionTest, AShiftOfHalfAMillimetreWouldBeNoticed) {
    DrawBoth();
    const std::size_t all = Misplaced(window_, -1).size();
    for (const QPointF& shift : {QPointF(0.5, 0), QPointF(-0.5, 0), QPointF(0, 0.5), QPointF(0, -0.5)}) {
        EXPECT_GE(Misplaced(Moved(shift), tolerance).size(), all * 4 / 5) << shift.x() << ", " << shift.y();
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, PreviewPositionTest,
                         testing::Values(Document{"NarrowForms", composition::documentTestForms, 1, false},
                                         Document{"WideForms", composition::documentTestForms, 2, false},
                                         Document{"FormUnderALetter", composition::documentTestForms, 3,
                                                  false},
                                         Document{"NameList", composition::documentNameList, 1, true},
                                         Document{"Report", composition::documentCalibration, 1, true}),
                         [](const auto& row) { return row.param.name; });

} // namespace
