#include "desktop/windows/AccessibleButton.h"

#include <atomic>
#include <memory>
#include <utility>

#include "desktop/windows/Win32.h"

#include <oleacc.h>

#include "desktop/windows/FromLibrary.h"

namespace desktop::windows {

namespace {

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};

/// Holds one reference.
using AccessiblePointer = std::unique_ptr<IAccessible, Releaser>;

/// A handle may stand for another window by now, and what a message means is a matter of each program.
bool IsOurs(HWND window) {
    DWORD process = 0; // it stays 0 where there is no such window
    ::GetWindowThreadProcessId(window, &process);
    return process == ::GetCurrentProcessId();
}

/// Says of a window what the system says, but for its role and state. It may outlive the window.
class AccessibleButton final : public IAccessible {
  public:
    /// `own` is the system's.
    AccessibleButton(HWND window, AccessiblePointer own) : window_(window), own_(std::move(own)) {}
    AccessibleButton(const AccessibleButton&) = delete;
    AccessibleButton& operator=(const AccessibleButton&) = delete;

    // Another interface of the system's object would lead back to that object, and not to this one.
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        if (iid != __uuidof(IUnknown) && iid != __uuidof(IDispatch) && iid != __uuidof(IAccessible)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
        if (!IsSelf(child)) {
            return own_->get_accRole(child, role);
        }
        role->vt = VT_I4;
        role->lVal = ROLE_SYSTEM_PUSHBUTTON;
        return S_OK;
    }
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
        const HRESULT result = own_->get_accState(child, state);
        if (SUCCEEDED(result) && IsSelf(child) && state->vt == VT_I4 && IsOurs(window_) &&
            ::SendMessageW(window_, MessageIsOff, 0, 0) != FALSE) {
            state->lVal |= STATE_SYSTEM_UNAVAILABLE;
        }
        return result;
    }

    // All else is as the system has it.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return own_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT number, LCID locale, ITypeInfo** info) override {
        return own_->GetTypeInfo(number, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return own_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
        return own_->Invoke(id, iid, locale, flags, parameters, result, exception, wrong);
    }
    STDMETHODIMP get_accParent(IDispatch** parent) override { return own_->get_accParent(parent); }
    STDMETHODIMP get_accChildCount(long* count) override { return own_->get_accChildCount(count); }
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** found) override {
        return own_->get_accChild(child, found);
    }
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override { return own_->get_accName(child, name); }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
        return own_->get_accValue(child, value);
    }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* text) override {
        return own_->get_accDescription(child, text);
    }
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* text) override { return own_->get_accHelp(child, text); }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, long* topic) override {
        return own_->get_accHelpTopic(file, child, topic);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* key) override {
        return own_->get_accKeyboardShortcut(child, key);
    }
    STDMETHODIMP get_accFocus(VARIANT* child) override { return own_->get_accFocus(child); }
    STDMETHODIMP get_accSelection(VARIANT* children) override { return own_->get_accSelection(children); }
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
        return own_->get_accDefaultAction(child, action);
    }
    STDMETHODIMP accSelect(long flags, VARIANT child) override { return own_->accSelect(flags, child); }
    STDMETHODIMP accLocation(long* left, long* top, long* width, long* height, VARIANT child) override {
        return own_->accLocation(left, top, width, height, child);
    }
    STDMETHODIMP accNavigate(long direction, VARIANT start, VARIANT* end) override {
        return own_->accNavigate(direction, start, end);
    }
    STDMETHODIMP accHitTest(long left, long top, VARIANT* child) override {
        return own_->accHitTest(left, top, child);
    }
    STDMETHODIMP accDoDefaultAction(VARIANT child) override { return own_->accDoDefaultAction(child); }
    STDMETHODIMP put_accName(VARIANT child, BSTR name) override { return own_->put_accName(child, name); }
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) override { return own_->put_accValue(child, value); }

  private:
    ~AccessibleButton() = default;

    static bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

    HWND window_;
    AccessiblePointer own_;
    std::atomic<ULONG> references_ = 1;
};

} // namespace

LRESULT AnswerAssistant(HWND button, WPARAM wParam) {
    static const auto begin = FromLibrary<decltype(&::CoInitializeEx)>(L"ole32.dll", "CoInitializeEx");
    static const auto describe =
        FromLibrary<decltype(&::CreateStdAccessibleObject)>(L"oleacc.dll", "CreateStdAccessibleObject");
    static const auto give = FromLibrary<decltype(&::LresultFromObject)>(L"oleacc.dll", "LresultFromObject");
    if (begin == nullptr || describe == nullptr || give == nullptr) {
        return 0;
    }
    static const HRESULT begun = begin(nullptr, COINIT_APARTMENTTHREADED); // to the end of the process
    void* own = nullptr;
    if (FAILED(begun) || FAILED(describe(button, OBJID_CLIENT, __uuidof(IAccessible), &own))) {
        return 0;
    }
    auto* object = new AccessibleButton(button, AccessiblePointer(static_cast<IAccessible*>(own)));
    const LRESULT answer = give(__uuidof(IAccessible), wParam, object);
    object->Release();
    return answer;
}

} // namespace desktop::windows
