#pragma once

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// A function of a library that is loaded when it is first needed, which in most runs is never; nullptr if
/// this Windows lacks it. Only Windows' own libraries are looked for.
template <class Function>
Function FromLibrary(const wchar_t* library, const char* name) {
    HMODULE loaded = ::LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return loaded == nullptr
               ? nullptr
               : reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(loaded, name)));
}

} // namespace desktop::windows
