#include "desktop/qt/Accessibility.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>

#include "desktop/qt/Guarded.h"
#include "forms/ReadingOrder.h"

namespace desktop::qt {

namespace {

// Properties of a widget: a number of QAccessible::Role, and whether it does nothing now.
constexpr const char* RoleProperty = "accessibleRole";
constexpr const char* OffProperty = "accessibleOff";

bool IsPlain(const QWidget& widget) {
    const std::string_view name = widget.metaObject()->className();
    return name == "QWidget" || name == "QFrame";
}

QList<QWidget*> PartsOf(const QWidget& widget) {
    QList<QWidget*> parts = widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    parts.removeIf([](const QWidget* part) { return part->isWindow(); });
    return parts;
}

// A rule, a picture without a meaning, the edge of something; or a label without a text.
bool IsDecoration(const QWidget& widget) {
    if (!widget.accessibleName().isEmpty()) {
        return false;
    }
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return label->text().isEmpty() && label->pixmap(Qt::ReturnByValue).isNull();
    }
    const QList<QWidget*> parts = PartsOf(widget);
    return IsPlain(widget) &&
           std::all_of(parts.begin(), parts.end(), [](const QWidget* part) { return IsDecoration(*part); });
}

/// The parts of a window or of an area in it that mean something, as they are read.
std::vector<QWidget*> ReadParts(const QWidget& widget) {
    std::vector<QWidget*> parts;
    std::vector<forms::Area> areas;
    for (QWidget* part : PartsOf(widget)) {
        if (!IsDecoration(*part)) {
            parts.push_back(part);
            areas.push_back(
                {double(part->x()), double(part->y()), double(part->width()), double(part->height())});
        }
    }
    std::vector<QWidget*> read;
    for (const std::size_t at : forms::ReadingOrder(areas)) {
        read.push_back(parts[at]);
    }
    return read;
}

/// A window, or a widget that the program draws or fills itself.
class AreaInterface : public QAccessibleWidget {
  public:
    explicit AreaInterface(QWidget* area) : QAccessibleWidget(area) {}

    int childCount() const override { return static_cast<int>(Parts().size()); }

    QAccessibleInterface* child(int index) const override {
        const std::vector<QWidget*> parts = Parts();
        return index < 0 || index >= static_cast<int>(parts.size())
                   ? nullptr
                   : QAccessible::queryAccessibleInterface(parts[static_cast<std::size_t>(index)]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const std::vector<QWidget*> parts = Parts();
        const auto found = std::find(parts.begin(), parts.end(), child->object());
        return found == parts.end() ? -1 : static_cast<int>(found - parts.begin());
    }

    QAccessible::Role role() const override {
        if (widget()->isWindow()) {
            return widget()->windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
        }
        const QVariant role = widget()->property(RoleProperty);
        if (!role.isValid() || widget()->accessibleName().isEmpty()) {
            return QAccessible::Client; // only holds others
        }
        const bool holds = role.toInt() == QAccessible::Graphic && childCount() > 0;
        return holds ? QAccessible::Grouping : static_cast<QAccessible::Role>(role.toInt());
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (!SpokenEnabled()) {
            state.disabled = true;
        }
        return state;
    }

    QStringList actionNames() const override {
        return role() == QAccessible::Button ? QStringList(pressAction()) : QAccessibleWidget::actionNames();
    }

    // A button that the program draws itself knows the mouse only.
    void doAction(const QString& action) override {
        if (action != pressAction() || !widget()->isEnabled() || !SpokenEnabled()) {
            QAccessibleWidget::doAction(action);
            return;
        }
        const QPointF middle = widget()->rect().center();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, middle, widget()->mapToGlobal(middle), Qt::LeftButton, held,
                              Qt::NoModifier);
            QApplication::sendEvent(widget(), &event);
        }
    }

  private:
    std::vector<QWidget*> Parts() const {
        return GuardedQuietly(std::vector<QWidget*>(), [this] { return ReadParts(*widget()); });
    }
    bool SpokenEnabled() const { return !widget()->property(OffProperty).toBool(); }
};

/// One of several options. The form turns off the others of its group, for which the toolkit would take it
/// for a check box.
class OptionInterface : public QAccessibleWidget {
  public:
    explicit OptionInterface(QWidget* option) : QAccessibleWidget(option, QAccessible::RadioButton) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = Button().isChecked();
        return state;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }

    void doAction(const QString& action) override {
        if (action == pressAction()) {
            Button().click();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

  private:
    QAbstractButton& Button() const { return *static_cast<QAbstractButton*>(widget()); }
};

/// Asked for the class of a widget, and then for those that it builds on: only the first counts.
QAccessibleInterface* Make(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr || className != QLatin1String(object->metaObject()->className())) {
        return nullptr;
    }
    if (className == QLatin1String("QRadioButton")) {
        return new OptionInterface(widget);
    }
    // The toolkit's own parts of that kind have names of its own.
    const bool own =
        className == QLatin1String("QWidget") && !widget->objectName().startsWith(QLatin1String("qt_"));
    return own ? new AreaInterface(widget) : nullptr;
}

} // namespace

void SpeakAs(QWidget& widget, QAccessible::Role role) {
    widget.setProperty(RoleProperty, static_cast<int>(role));
}

void SpeakEnabled(QWidget& widget, bool enabled) {
    if (widget.property(OffProperty).toBool() == !enabled) {
        return;
    }
    widget.setProperty(OffProperty, !enabled);
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(&widget, changed);
    QAccessible::updateAccessibility(&event);
}

void InstallAccessibility() {
    QAccessible::installFactory(Make);
}

} // namespace desktop::qt
