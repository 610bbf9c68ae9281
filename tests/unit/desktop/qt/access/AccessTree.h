#pragma once

#include <ostream>
#include <string>
#include <vector>

#include <QAccessible>
#include <QString>

class QWidget;

/// What assistive technology finds in a window.
namespace spoken {

/// An object on show, as a screen reader sees it.
struct Object {
    QAccessibleInterface* Interface;
    QAccessible::Role Role;
    std::string Name;
    /// Name of the control or the part behind it; empty for an entry of a list or a menu.
    std::string Control;

    QAccessible::State State() const { return Interface->state(); }
};

/// All objects on show below a window, the window first, each before what it holds, in the order in which
/// they are read.
std::vector<Object> Tree(QWidget* window);

/// The object of a control; fails the test if the window shows none.
Object Find(QWidget* window, const char* control);

/// The texts of the labels that an object is tied to.
std::vector<std::string> Labels(const Object& object);

/// Something that assistive technology was told: what happened, to which object, and what it is called or has
/// for its value.
struct Event {
    QAccessible::Event Kind;
    std::string Object;
    std::string Text;

    bool operator==(const Event&) const = default;
    friend void PrintTo(const Event& event, std::ostream* out) {
        *out << static_cast<int>(event.Kind) << ' ' << event.Object << ' ' << event.Text;
    }
};

/// While it lives, assistive technology is listening.
class Listener {
  public:
    Listener();
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    std::vector<Event> Of(QAccessible::Event kind) const;
};

} // namespace spoken
