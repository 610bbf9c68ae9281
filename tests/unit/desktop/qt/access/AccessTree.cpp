#include "unit/desktop/qt/access/AccessTree.h"

#include <algorithm>

#include <QWidget>
#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace spoken {

namespace {

std::vector<Event> heard;

Object ObjectOf(QAccessibleInterface* interface) {
    const QObject* behind = interface->object();
    return {interface, interface->role(), interface->text(QAccessible::Name).toStdString(),
            behind == nullptr ? std::string() : behind->objectName().toStdString()};
}

void Add(QAccessibleInterface* interface, std::vector<Object>& all) {
    if (interface == nullptr || !interface->isValid() || interface->state().invisible) {
        return;
    }
    all.push_back(ObjectOf(interface));
    for (int at = 0; at < interface->childCount(); ++at) {
        Add(interface->child(at), all);
    }
}

void Hear(QAccessibleEvent* event) {
    QAccessibleInterface* interface = event->accessibleInterface();
    if (interface == nullptr) {
        return;
    }
    const Object object = ObjectOf(interface);
    const bool hasValue =
        event->type() == QAccessible::ValueChanged && interface->valueInterface() != nullptr;
    heard.push_back(
        {event->type(), object.Control,
         hasValue ? interface->valueInterface()->currentValue().toString().toStdString() : object.Name});
}

void Listen(bool on) {
    heard.clear();
    QAccessible::installUpdateHandler(on ? Hear : nullptr);
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

} // namespace

std::vector<Object> Tree(QWidget* window) {
    std::vector<Object> all;
    Add(QAccessible::queryAccessibleInterface(window), all);
    return all;
}

Object Find(QWidget* window, const char* control) {
    const std::vector<Object> all = Tree(window);
    const auto found = std::find_if(all.begin(), all.end(),
                                    [control](const Object& each) { return each.Control == control; });
    if (found == all.end()) {
        ADD_FAILURE() << control << " is not in the tree";
        return all.front();
    }
    return *found;
}

std::vector<std::string> Labels(const Object& object) {
    std::vector<std::string> texts;
    for (const auto& [label, relation] : object.Interface->relations(QAccessible::Label)) {
        texts.push_back(label->text(QAccessible::Name).toStdString());
    }
    return texts;
}

Listener::Listener() {
    Listen(true);
}

Listener::~Listener() {
    Listen(false);
}

std::vector<Event> Listener::Of(QAccessible::Event kind) const {
    std::vector<Event> found;
    std::copy_if(heard.begin(), heard.end(), std::back_inserter(found),
                 [kind](const Event& event) { return event.Kind == kind; });
    return found;
}

} // namespace spoken
