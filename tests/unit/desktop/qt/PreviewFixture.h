#pragma once

#include <functional>
#include <string>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <gtest/gtest.h>

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
#include "unit/desktop/qt/Window.h"

/// The preview in its real window. Each page has its number and a black rule at a place of its own.
class PreviewTest : public testing::Test {
  protected:
    PreviewTest() {
        memory.InstallPrinter({.Name = "Proefprinter"});
        state.ListFontName = "Tahoma";
    }

    static constexpr double RuleDistance = 720; // twips

    /// Opens a preview on a document of so many pages.
    void Compose(int pages) {
        preview.OpenPreview(0);
        composition::PrintSurface& surface = *state.Surface;
        for (int page = 1; page <= pages; ++page) {
            if (page > 1) {
                surface.Newpage();
            }
            surface.PrintLine("pagina " + std::to_string(page));
            for (int thickness = 0; thickness < 60; thickness += 5) {
                surface.Line(0, page * RuleDistance + thickness, 5000, page * RuleDistance + thickness, 0);
            }
        }
        surface.EndDoc();
    }

    /// Composes a document, and shows it until `user` has left the window.
    void Show(int pages, const std::function<void()>& user) {
        Compose(pages);
        window::WhenShown("frmPrintPreview", [&] {
            user();
            preview.Window()->Unload();
        });
        preview.Show();
        preview.OpenPreview(1);
    }

    preview::frmPrintPreview& Form() { return *preview.Window(); }
    preview::frmPrintPreviewGhost& Ghost() { return *preview.Ghost(); }
    const machine::PageBitmap& Bitmap(int page) {
        return *Ghost().ThisPage.at(static_cast<std::int16_t>(page)).Picture;
    }
    QWidget* Widget(const char* control) { return window::Find("frmPrintPreview", control); }
    QScrollBar* Bar() { return window::Find<QScrollBar>("frmPrintPreview", "VScroll"); }
    QString Panel(int number) {
        return window::Find<QLabel>("frmPrintPreview", QStringLiteral("StatusBar(%1)").arg(number))->text();
    }
    void Wheel(const QPoint& delta) { window::Wheel(Widget("pictCurrentPage"), delta); }

    /// The number of the page whose rule is on the screen, 0 if there is none.
    int PageOnScreen() {
        const QImage picture = Widget("pictCurrentPage")->grab().toImage();
        const double ratio = picture.devicePixelRatio();
        for (int page = 1; page <= 9; ++page) {
            const int x = desktop::qt::ToDots(1000);
            const int y = desktop::qt::ToDots(page * RuleDistance + 30);
            const QColor colour =
                picture.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
            if (colour.lightness() < 128) {
                return page;
            }
        }
        return 0;
    }

    memory::MemoryPlatform memory;
    desktop::qt::QtDesktop desktop;
    desktop::qt::QtBitmaps bitmaps;
    machine::Platform services{desktop,       memory.registry,   memory.locale,   memory.clock,
                               memory.random, memory.spooler,    memory.printers, memory.printer,
                               bitmaps,       desktop.Windows(), memory.fonts};
    state::AppState state;
    forms::Session session{desktop};
    composition::PrinterSurface printer{memory.printer};
    preview::PrintPreview preview{session, services, state, printer};
};
