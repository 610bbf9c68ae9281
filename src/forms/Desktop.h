#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/RuntimeError.h"

namespace forms {
class Form;
class FormPeer;
} // namespace forms

namespace forms {

enum class MessageIcon { Information, Exclamation, Critical };

// Codes of the mouse pointer.
inline constexpr int PointerDefault = 0;
inline constexpr int PointerHourglass = 11;

/// Virtual key codes that the program tells apart.
namespace key {
inline constexpr int Backspace = 8;
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Delete = 46;
inline constexpr int F1 = 112;
} // namespace key

/// A rectangle of the screen in twips.
struct ScreenArea {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
};

/// The window system. One thread: a modal form, a message box and a yield run the message loop inside the
/// call, so handlers can be entered again from there.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// Makes the real window and controls of a form that is being loaded. They mirror the form from then on.
    virtual std::unique_ptr<FormPeer> CreatePeer(Form& form) = 0;

    /// Runs the message loop until the form is no longer shown.
    virtual void RunModal(Form& form) = 0;

    /// Lets the window system handle its waiting messages once.
    virtual void Yield() = 0;

    /// A message box with one OK button.
    virtual void MsgBox(const std::string& text, MessageIcon icon, const std::string& title) = 0;

    /// Shows the handbook, from the heading of this anchor on, in the program that the user has for pages of
    /// the web. If it cannot be shown the user is told.
    virtual void ShowHandbook(const std::string& section) = 0;

    /// Asks the user for the file that a text is to be saved in, with `proposal` as its name without a
    /// folder. A file that is there is answered only once the user has agreed that it is replaced. The empty
    /// text if the user does not want to save. UTF-8.
    virtual std::string AskFileToSave(const std::string& proposal) = 0;

    /// Writes lines that each end in LF into a file, with the line ends of the system. False if that fails.
    virtual bool SaveText(const std::string& file, const std::string& text) = 0;

    /// Negative if the key is down, as a signed 16-bit value.
    virtual std::int16_t GetKeyState(int virtualKey) = 0;

    virtual void SetMousePointer(int pointer) = 0;
    /// Show the hourglass, and the usual pointer again. They do not nest.
    void HourglassOn() { SetMousePointer(PointerHourglass); }
    void HourglassOff() { SetMousePointer(PointerDefault); }

    /// Stops the drawing of a window, named by the handle of its control; 0 draws again. Against flicker
    /// only.
    virtual void LockWindowUpdate(std::uintptr_t window) = 0;

    virtual ScreenArea Screen() = 0;
    /// The screen without task bars and panels.
    virtual ScreenArea WorkArea() = 0;

    /// A failure that no handler trapped.
    virtual void UnhandledError(const base::RuntimeError& error) = 0;
};

} // namespace forms
