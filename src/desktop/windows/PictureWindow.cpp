#include "desktop/windows/PictureWindow.h"

#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/VectorPicture.h"
#include "desktop/windows/WinBitmaps.h"

namespace desktop::windows {

namespace {

/// Drawing in answer to WM_PAINT.
class Painting {
  public:
    explicit Painting(HWND window) : window_(window), device_(::BeginPaint(window, &paint_)) {}
    ~Painting() { ::EndPaint(window_, &paint_); }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;

    HDC Device() const { return device_; }
    /// What has to be drawn.
    const RECT& Part() const { return paint_.rcPaint; }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC device_;
};

void Fill(HDC device, const RECT& area, COLORREF colour) {
    const COLORREF before = ::SetBkColor(device, colour);
    ::ExtTextOutW(device, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
    ::SetBkColor(device, before);
}

void DrawPage(HDC device, const RECT& area, const PictureContent& content, const WinPageBitmap& page) {
    Fill(device, area, content.Background);
    page.Paint(device, content.DotsPerInch);
}

/// Draws off the screen first: the texts come over the white of their page.
void ShowPage(HDC device, const RECT& area, const RECT& part, const PictureContent& content,
              const WinPageBitmap& page) {
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    const DeviceContext whole(::CreateCompatibleDC(device));
    const Bitmap dots(::CreateCompatibleBitmap(device, width, height));
    if (!whole || !dots) { // it flickers
        DrawPage(device, area, content, page);
        return;
    }
    const Selected selected(whole.Get(), dots.Get());
    ::SetViewportOrgEx(whole.Get(), -part.left, -part.top, nullptr);
    DrawPage(whole.Get(), area, content, page);
    ::BitBlt(device, part.left, part.top, width, height, whole.Get(), part.left, part.top, SRCCOPY);
}

void ShowPicture(HDC device, const RECT& area, const PictureContent& content) {
    const DeviceContext whole(::CreateCompatibleDC(device));
    const Bitmap dots(::CreateCompatibleBitmap(device, area.right, area.bottom));
    if (!whole || !dots) {
        return;
    }
    const Selected selected(whole.Get(), dots.Get());
    Fill(whole.Get(), area, content.Background);
    DrawPicture(whole.Get(), content.Picture, area, content.Background);
    ::BitBlt(device, 0, 0, area.right, area.bottom, whole.Get(), 0, 0, SRCCOPY);
}

} // namespace

const wchar_t* PlainWindowClass() {
    static const wchar_t* const name = [] {
        constexpr const wchar_t* plain = L"DrukkeuringPlain";
        WNDCLASSEXW window{};
        window.cbSize = sizeof window;
        window.style = CS_DBLCLKS;
        window.lpfnWndProc = ::DefWindowProcW;
        window.hInstance = ::GetModuleHandleW(nullptr);
        window.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        window.lpszClassName = plain;
        ::RegisterClassExW(&window);
        return plain;
    }();
    return name;
}

void PaintPicture(HWND window, const PictureContent& content) {
    const Painting painting(window);
    RECT area{};
    ::GetClientRect(window, &area);
    if (const auto* page = dynamic_cast<const WinPageBitmap*>(content.Page.get())) {
        ShowPage(painting.Device(), area, painting.Part(), content, *page);
    } else if (IsPicture(content.Picture)) {
        ShowPicture(painting.Device(), area, content);
    } else {
        Fill(painting.Device(), area, content.Background);
    }
}

} // namespace desktop::windows
