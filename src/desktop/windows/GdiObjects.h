#pragma once

#include <utility>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// A handle that goes with its owner. Empty holds nothing; whoever makes one asks whether it came to be.
template <class Handle, auto Release>
class Owned {
  public:
    Owned() = default;
    explicit Owned(Handle handle) : handle_(handle) {}
    Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
    Owned& operator=(Owned&& other) noexcept {
        if (this != &other) {
            Reset(std::exchange(other.handle_, Handle{}));
        }
        return *this;
    }
    ~Owned() { Reset(); }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Handle{}; }

    /// Lets go of the present handle, for another one or for none.
    void Reset(Handle handle = Handle{}) {
        if (const Handle old = std::exchange(handle_, handle); old != Handle{}) {
            Release(old);
        }
    }

  private:
    Handle handle_{};
};

template <class Handle>
void DeleteGdiObject(Handle handle) {
    ::DeleteObject(handle);
}

/// A device context from CreateDC or CreateCompatibleDC.
using DeviceContext = Owned<HDC, ::DeleteDC>;
using Font = Owned<HFONT, DeleteGdiObject<HFONT>>;
using Pen = Owned<HPEN, DeleteGdiObject<HPEN>>;
using Brush = Owned<HBRUSH, DeleteGdiObject<HBRUSH>>;
using Bitmap = Owned<HBITMAP, DeleteGdiObject<HBITMAP>>;
using Icon = Owned<HICON, ::DestroyIcon>;

/// An object in use by a device context, until the end of the scope: then the one before it is back, so that
/// neither is released while it is in use.
class Selected {
  public:
    Selected(HDC device, HGDIOBJ object) : device_(device), before_(::SelectObject(device, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    /// False if the device context has not taken it.
    explicit operator bool() const { return before_ != nullptr; }
    ~Selected() {
        if (before_ != nullptr) {
            ::SelectObject(device_, before_);
        }
    }

  private:
    HDC device_;
    HGDIOBJ before_;
};

} // namespace desktop::windows
