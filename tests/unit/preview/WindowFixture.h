#pragma once

#include "forms/Desktop.h"
#include "unit/preview/PreviewFixture.h"

namespace preview {

/// A window on a document of `pages` pages, shown as far as a test needs it.
class WindowTest : public PreviewTest {
  protected:
    void Start(int pages) {
        InstallPrinter(printerName);
        Open();
        Compose(pages);
        Window().Show();
        events.clear();
    }
    ~WindowTest() override { Close(); }

    void Key(int code) { Window().UserKey(code); }
    void Wheel(std::int16_t delta) { memory.desktop.Windows().SendWheel(Window().hWnd(), delta); }
    int V() { return Window().VScroll.Value(); }
    int H() { return Window().HScroll.Value(); }
    void GoTo(int v, int h) {
        Window().VScroll.SetValue(v);
        Window().HScroll.SetValue(h);
    }

    std::string printerName = "Laser";
};

} // namespace preview
