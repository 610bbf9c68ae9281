#include <algorithm>

#include "desktop/windows/Win32.h"

#include <imm.h>

#include "desktop/windows/Fonts.h"
#include "desktop/windows/Raised.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/Desktop.h"
#include "forms/Form.h"
#include "forms/TextBox.h"
#include "forms/TextUnits.h"

namespace desktop::windows {

namespace {

constexpr wchar_t SelectAllKey = 1; // Ctrl+A as a character
constexpr wchar_t FirstPrintable = 32;
constexpr wchar_t CtrlBackspace = 127;

/// Messages after which the caret or the selection may be another.
bool MovesCaret(UINT message) {
    constexpr UINT messages[] = {WM_KEYDOWN,   WM_CHAR,          WM_LBUTTONDOWN, WM_LBUTTONUP,
                                 WM_MOUSEMOVE, WM_LBUTTONDBLCLK, EM_SETSEL};
    return std::find(std::begin(messages), std::end(messages), message) != std::end(messages);
}

/// A typed character goes to the form's box, which filters and limits it; pasting, cutting and the like are
/// the window's own, and the form's box is told what came of it.
class WinTextBox final : public WinControl {
  public:
    WinTextBox(forms::TextBox& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    void TakeFocus() override;
    bool KeyPressed(int virtualKey, bool shift) override;
    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    /// In units.
    struct Selection {
        int Start;
        int End;
    };

    std::wstring Text() const;
    Selection Selected() const;
    void ShowText();
    void ShowSelection();
    void TellEdit();
    void TellSelection();
    /// A unit of a typed character. False if the box has no use for it and the window may.
    bool Type(wchar_t unit);
    bool TypeRepeatedly(wchar_t unit, int times);
    void TypeCharacter(char32_t character);
    LRESULT TextSet(LPARAM text);

    // The window would write at the top of a box that is higher than its line.
    void CentreLine(RECT& inside) const;
    void PaintAroundLine();

    forms::TextBox& model_;
    wchar_t highHalf_ = 0; // of a character whose other half is still to come
    bool typing_ = false;
};

WinTextBox::WinTextBox(forms::TextBox& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_EDITW, ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE),
      model_(control) {
    Send(EM_SETLIMITTEXT, 0); // the form's box has the limit
}

std::wstring WinTextBox::Text() const {
    std::wstring text(static_cast<std::size_t>(Send(WM_GETTEXTLENGTH)) + 1, L'\0');
    const LRESULT length = Send(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

WinTextBox::Selection WinTextBox::Selected() const {
    DWORD start = 0;
    DWORD end = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
}

void WinTextBox::TellEdit() {
    const std::wstring text = Text();
    const Selection selection = Selected();
    const int first = forms::CharactersIn<wchar_t>(text, selection.Start);
    model_.UserEdit(FromWide(text), first, forms::CharactersIn<wchar_t>(text, selection.End) - first);
    Mirror(forms::Aspect::Text);
}

void WinTextBox::TellSelection() {
    if (model_.Owner().ActiveControl() != &model_) {
        return;
    }
    const std::wstring text = Text();
    const Selection selection = Selected();
    const int first = forms::CharactersIn<wchar_t>(text, selection.Start);
    model_.UserSelect(first, forms::CharactersIn<wchar_t>(text, selection.End) - first);
}

// What is typed goes in as an edit of the part that changed, so that the user can undo it; a text that the
// program sets replaces the whole.
void WinTextBox::ShowText() {
    const std::wstring wanted = ToWide(model_.Text());
    const std::wstring present = Text();
    if (wanted == present) {
        return;
    }
    if (!typing_) {
        ::SetWindowTextW(Window(), wanted.c_str());
        return;
    }
    const forms::TextDifference change = forms::DifferenceOf<wchar_t>(present, wanted);
    Send(EM_SETSEL, static_cast<WPARAM>(change.Start), change.Start + change.Removed);
    const std::wstring inserted =
        wanted.substr(static_cast<std::size_t>(change.Start), static_cast<std::size_t>(change.Inserted));
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(inserted.c_str()));
    if (Text() != wanted) { // a character that a box of one line cannot hold
        ::SetWindowTextW(Window(), wanted.c_str());
    }
}

void WinTextBox::ShowSelection() {
    const std::wstring text = Text();
    const int start = forms::UnitsOf<wchar_t>(text, model_.SelStart());
    const int end = forms::UnitsOf<wchar_t>(text, model_.SelStart() + model_.SelLength());
    const Selection present = Selected();
    if (present.Start != start || present.End != end) {
        Send(EM_SETSEL, static_cast<WPARAM>(start), end);
    }
    Send(EM_SCROLLCARET);
}

void WinTextBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Font || aspect == forms::Aspect::Geometry) {
        ::SetWindowPos(Window(), nullptr, 0, 0, 0, 0,
                       SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (aspect == forms::Aspect::Enabled) {
        Send(EM_SETREADONLY, model_.Locked() ? TRUE : FALSE);
    }
    if (aspect == forms::Aspect::Text || aspect == forms::Aspect::Selection) {
        ShowText();
        ShowSelection();
    }
}

void WinTextBox::TakeFocus() {
    WinControl::TakeFocus();
    Mirror(forms::Aspect::Selection);
}

bool WinTextBox::KeyPressed(int virtualKey, bool shift) {
    if (virtualKey == forms::key::Backspace) { // comes as a character
        return true;
    }
    return WinControl::KeyPressed(virtualKey, shift);
}

void WinTextBox::TypeCharacter(char32_t character) {
    const Raised typing(typing_);
    model_.Owner().UserCharacter(character);
}

bool WinTextBox::Type(wchar_t unit) {
    if (unit == forms::key::Backspace) {
        TypeCharacter(unit);
        return true;
    }
    if (unit == SelectAllKey) {
        Send(EM_SETSEL, 0, -1);
        return true;
    }
    if (unit < FirstPrintable || unit == CtrlBackspace) {
        return unit == CtrlBackspace;
    }
    if (forms::IsHighHalf(unit)) {
        highHalf_ = unit;
        return true;
    }
    char32_t character = unit;
    if (forms::IsLowHalf(unit)) {
        if (highHalf_ == 0) {
            return true;
        }
        character = 0x10000U + ((static_cast<char32_t>(highHalf_) & 0x3FFU) << 10U) + (unit & 0x3FFU);
    }
    highHalf_ = 0;
    TypeCharacter(character);
    return true;
}

// A key that is held down while the program is busy comes as one message with a count.
bool WinTextBox::TypeRepeatedly(wchar_t unit, int times) {
    bool typed = Type(unit);
    for (int i = 1; typed && i < times; ++i) {
        typed = Type(unit);
    }
    return typed;
}

void WinTextBox::Notified(UINT code) {
    if (code == EN_CHANGE) {
        TellEdit();
    }
}

// Another program has set the text (a screen reader, a test); Windows holds it to no limit.
LRESULT WinTextBox::TextSet(LPARAM text) {
    {
        const Silence silence(*this);
        PassOn(WM_SETTEXT, 0, text);
    }
    model_.SetText(FromWide(Text()));
    Mirror(forms::Aspect::Text); // also where the form's box has cut it to what it had before
    return TRUE;
}

void WinTextBox::CentreLine(RECT& inside) const {
    const LONG spare = inside.bottom - inside.top - LineHeight(FontOf());
    inside.top += std::max(0L, spare / 2);
}

void WinTextBox::PaintAroundLine() {
    RECT outer{};
    RECT strip{};
    ::GetWindowRect(Window(), &outer);
    ::GetClientRect(Window(), &strip);
    ::MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&strip), 2);
    ::OffsetRect(&strip, -outer.left, -outer.top);
    strip.bottom = strip.top;
    strip.top = strip.left; // the border is as wide above as it is at the left
    HDC device = ::GetWindowDC(Window());
    const bool own = ::IsWindowEnabled(Window()) != FALSE;
    ::FillRect(device, &strip, own ? Colour(device) : ::GetSysColorBrush(COLOR_BTNFACE));
    ::ReleaseDC(Window(), device);
}

LRESULT WinTextBox::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CHAR:
    case WM_IME_CHAR:
        if (TypeRepeatedly(static_cast<wchar_t>(wParam), LOWORD(lParam))) {
            return 0;
        }
        break;
    case WM_IME_COMPOSITION:
        // A character that was composed of several keys is typed like any other; the window would put it in
        // by itself.
        if ((lParam & GCS_RESULTSTR) != 0) {
            return ::DefWindowProcW(Window(), message, wParam, lParam);
        }
        break;
    case WM_SETTEXT:
        if (!Silent()) {
            return TextSet(lParam);
        }
        break;
    case WM_NCCALCSIZE: {
        const LRESULT result = PassOn(message, wParam, lParam);
        CentreLine(*reinterpret_cast<RECT*>(lParam)); // what either form of the message begins with
        return result;
    }
    case WM_NCPAINT: {
        const LRESULT result = PassOn(message, wParam, lParam);
        PaintAroundLine();
        return result;
    }
    case WM_NCHITTEST: {
        const LRESULT hit = PassOn(message, wParam, lParam);
        return hit == HTBORDER || hit == HTNOWHERE ? HTCLIENT : hit;
    }
    case WM_RBUTTONDOWN: // opens the menu of the box
        if (MousePressed()) {
            return 0;
        }
        break;
    default:
        break;
    }
    const LRESULT result = WinControl::Received(message, wParam, lParam);
    if (!Silent() && MovesCaret(message)) {
        TellSelection();
    }
    return result;
}

} // namespace

std::unique_ptr<WinControl> MakeTextBox(forms::TextBox& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinTextBox>(control, form, place);
}

} // namespace desktop::windows
