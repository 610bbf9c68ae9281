#include "desktop/windows/GdiPlus.h"

namespace desktop::windows {

GdiPlus::GdiPlus() {
    Gdiplus::GdiplusStartupInput input{};
    input.GdiplusVersion = 1;
    if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok) {
        token_ = 0;
    }
}

GdiPlus::~GdiPlus() {
    if (token_ != 0) {
        Gdiplus::GdiplusShutdown(token_);
    }
}

bool GdiPlus::Started() {
    static const GdiPlus session;
    return session.token_ != 0;
}

} // namespace desktop::windows
