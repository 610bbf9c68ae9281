// What turning the page of a preview costs, beside the same preview with its pages as bitmaps, and beside the
// least that the toolkit needs to show another picture of that size. The processor's time counts in all
// threads: the toolkit turns a bitmap of 16 bits a dot into the screen's in several.

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "composition/PrintSurface.h"
#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/QtDesktop.h"
#include "desktop/qt/Scale.h"
#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "preview/PrintPreview.h"
#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"
#include "state/AppState.h"

namespace {

constexpr int ButtonPrevious = 4;
constexpr int ButtonNext = 5;

/// A preview of so many sheets of A4 in its window.
class Shown {
  public:
    explicit Shown(int pages) {
        memory_.InstallPrinter({.Name = "Proefprinter"});
        state_.ListFontName = "Tahoma";
        preview_.OpenPreview(0);
        for (int page = 1; page <= pages; ++page) {
            if (page > 1) {
                state_.Surface->Newpage();
            }
            for (int line = 0; line < 60; ++line) {
                state_.Surface->PrintLine("pagina " + std::to_string(page) + ", regel " +
                                          std::to_string(line));
            }
        }
        state_.Surface->EndDoc();
        preview_.Window()->Show();
        QApplication::processEvents();
    }
    ~Shown() {
        preview_.OpenPreview(1);
        QApplication::processEvents();
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

    void TurnThePage() {
        forms::Toolbar& toolbar = preview_.Window()->Toolbar;
        toolbar.UserClickButton(forth_ ? ButtonNext : ButtonPrevious);
        forth_ = !forth_;
    }

    /// The page in dots of the screen, of a kind that takes little room.
    QImage Bitmap(std::int16_t page) const {
        const auto& kept =
            static_cast<const desktop::qt::QtPageBitmap&>(*preview_.Ghost()->ThisPage.at(page).Picture);
        const double density = qGuiApp->devicePixelRatio();
        const double dots = desktop::qt::DotsPerTwip() * density;
        QImage bitmap(static_cast<int>(std::ceil(kept.Width() * dots)),
                      static_cast<int>(std::ceil(kept.Height() * dots)), QImage::Format_RGB16);
        bitmap.setDevicePixelRatio(density);
        QPainter painter(&bitmap);
        kept.Paint(painter, QRectF(QPointF(0, 0), QSizeF(bitmap.size())));
        return bitmap;
    }
    QWidget* Window() { return desktop_.TopWindow(); }
    QWidget* Page() { return Window()->findChild<QWidget*>("pictCurrentPage"); }

  private:
    memory::MemoryPlatform memory_;
    desktop::qt::QtDesktop desktop_;
    desktop::qt::QtBitmaps bitmaps_;
    machine::Platform services_{desktop_,       memory_.registry,   memory_.locale,   memory_.clock,
                                memory_.random, memory_.spooler,    memory_.printers, memory_.printer,
                                bitmaps_,       desktop_.Windows(), memory_.fonts};
    state::AppState state_;
    forms::Session session_{desktop_};
    composition::PrinterSurface printer_{memory_.printer};
    preview::PrintPreview preview_{session_, services_, state_, printer_};
    bool forth_ = true;
};

/// Paints the page that the preview turns to as a bitmap that was made before.
class BitmapInstead final : public QObject {
  public:
    BitmapInstead(const QImage& first, const QImage& second) : pictures_{first, second} {}

    /// On a widget that leaves its background to the toolkit.
    void ShowTheOther(QWidget& page) {
        page.setAttribute(Qt::WA_OpaquePaintEvent, false);
        page.installEventFilter(this);
        shown_ = 1 - shown_;
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint) {
            return false;
        }
        QPainter(static_cast<QWidget*>(watched)).drawImage(0, 0, pictures_[shown_]);
        return true;
    }

  private:
    QImage pictures_[2];
    int shown_ = 0;
};

/// A window that shows one of two pictures, and nothing else.
class PlainWindow final : public QWidget {
  public:
    PlainWindow(const QImage& first, const QImage& second) : pictures_{first, second} {}

    void ShowTheOther() {
        shown_ = 1 - shown_;
        update();
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).drawImage(0, 0, pictures_[shown_]); }

  private:
    QImage pictures_[2];
    int shown_ = 0;
};

/// Until the program waits for the user again; the screen follows when the desktop asks for it.
void PageChange(benchmark::State& run) {
    Shown preview(40);
    for ([[maybe_unused]] auto _ : run) {
        preview.TurnThePage();
    }
}
BENCHMARK(PageChange)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();

void PageChangeOnScreen(benchmark::State& run) {
    Shown preview(40);
    for ([[maybe_unused]] auto _ : run) {
        preview.TurnThePage();
        QApplication::processEvents();
    }
}
BENCHMARK(PageChangeOnScreen)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();

void PageChangeOnScreenByBitmap(benchmark::State& run) {
    Shown preview(40);
    BitmapInstead bitmap(preview.Bitmap(1), preview.Bitmap(2));
    for ([[maybe_unused]] auto _ : run) {
        preview.TurnThePage();
        bitmap.ShowTheOther(*preview.Page());
        QApplication::processEvents();
    }
}
BENCHMARK(PageChangeOnScreenByBitmap)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();

void PictureChangeOnScreen(benchmark::State& run) {
    Shown preview(2);
    PlainWindow window(preview.Bitmap(1), preview.Bitmap(2));
    window.resize(preview.Window()->size());
    window.show();
    QApplication::processEvents();
    for ([[maybe_unused]] auto _ : run) {
        window.ShowTheOther();
        QApplication::processEvents();
    }
}
BENCHMARK(PictureChangeOnScreen)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();

std::size_t AllocatedBytes() {
    const auto held = mallinfo2();
    return held.uordblks + held.hblkhd;
}

/// What 40 pages hold in memory, and as bitmaps of the same screen.
void PagesInMemory(benchmark::State& run) {
    constexpr std::int16_t pages = 40;
    { const Shown warm(2); }
    for ([[maybe_unused]] auto _ : run) {
        const std::size_t before = AllocatedBytes();
        Shown preview(pages);
        run.counters["bytes"] = static_cast<double>(AllocatedBytes() - before);
        const std::size_t kept = AllocatedBytes();
        std::vector<QImage> bitmaps;
        for (std::int16_t page = 1; page <= pages; ++page) {
            bitmaps.push_back(preview.Bitmap(page));
        }
        run.counters["bitmap_bytes"] = static_cast<double>(AllocatedBytes() - kept);
    }
}
BENCHMARK(PagesInMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

void OpenAndClose(benchmark::State& run) {
    for ([[maybe_unused]] auto _ : run) {
        Shown preview(1);
    }
}
BENCHMARK(OpenAndClose)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
