#include "Accessible.h"

#include <windows.h>
#include <oleacc.h>

#include "Wire.h"

// What a screen reader is told of a window: its role and its state as numbers, and its name.
std::string Accessible(std::istream& in) {
    const HWND window = Window(in);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    void* found = nullptr;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                          &found))) {
        return "error";
    }
    auto* object = static_cast<IAccessible*>(found);
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    VARIANT role{};
    VARIANT state{};
    BSTR name = nullptr;
    const bool told = SUCCEEDED(object->get_accRole(self, &role)) &&
                      SUCCEEDED(object->get_accState(self, &state)) &&
                      SUCCEEDED(object->get_accName(self, &name));
    const std::string answer = std::to_string(role.lVal) + ' ' + std::to_string(state.lVal) + ' ' +
                               Hex(name == nullptr ? L"" : name);
    SysFreeString(name);
    object->Release();
    return told ? answer : "error";
}
