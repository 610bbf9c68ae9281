// Every control can be reached with the keyboard, in the order in which the window is read, and shows that it
// is there.
#include <algorithm>
#include <map>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>

#include "forms/Form.h"
#include "unit/desktop/qt/access/AccessTest.h"

namespace {

using spoken::Object;
using testing::ElementsAreArray;
using testing::UnorderedElementsAreArray;

using KeyboardTest = AccessTest;
using Stops = std::vector<std::string>;

std::string Focused() {
    const QWidget* widget = QApplication::focusWidget();
    return widget == nullptr ? std::string() : widget->objectName().toStdString();
}

/// What the key comes to until it is back where it began.
Stops Walk(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    constexpr std::size_t patience = 40;
    const std::string first = Focused();
    Stops stops{first};
    while (stops.size() < patience) {
        window::Key(key, modifiers);
        if (Focused() == first) {
            break;
        }
        stops.push_back(Focused());
    }
    return stops;
}

/// The same round, begun elsewhere.
Stops From(Stops stops, const std::string& first) {
    std::rotate(stops.begin(), std::find(stops.begin(), stops.end(), first), stops.end());
    return stops;
}

const std::map<std::string, Stops> Rounds{
    {"page 0",
     {"UserText(70)", "UserText(71)", "UserText(72)", "UserText(73)", "UserText(74)", "Verder", "Cancel"}},
    {"page 1", {"optProcedure(0)", "optProcedure(1)", "Terug", "Verder", "Cancel"}},
    {"page 2", {"optTestpartij(0)", "optTestpartij(1)", "optTestpartij(2)", "Terug", "Verder", "Cancel"}},
    {"page 3", {"UserText(0)", "cmdPrinten", "cmdVoorcontrole", "Terug", "Cancel"}},
    {"manager",
     {"lstAfdrukken", "UserText(0)", "cboPrinterSelect(0)", "chkMatrixPrinter", "cmdDetails",
      "cmdAnnuleren"}},
    {"details",
     {"lstAfdrukken", "UserText(0)", "cboPrinterSelect(0)", "chkMatrixPrinter", "cmdDetails",
      "cboPrinterSelect(3)", "cboPrinterSelect(1)", "cboPrinterSelect(2)", "cmdAnnuleren"}},
    {"setup", {"UserText(1)", "UserText(0)", "cmdOK", "cmdClose"}},
};

TEST_F(KeyboardTest, TabGoesRoundInReadingOrderAndShiftTabBack) {
    std::size_t met = 0;
    ForEachWindow([&](QWidget*, const std::string& what) {
        const auto row = Rounds.find(what);
        if (row == Rounds.end()) {
            return;
        }
        ++met;
        Stops forward = From(Walk(Qt::Key_Tab, Qt::NoModifier), row->second.front());
        EXPECT_THAT(forward, ElementsAreArray(row->second)) << what;
        Stops backward = Walk(Qt::Key_Backtab, Qt::ShiftModifier);
        std::reverse(backward.begin(), backward.end());
        EXPECT_THAT(From(backward, row->second.front()), ElementsAreArray(row->second)) << what;
    });
    EXPECT_EQ(met, Rounds.size());
}

TEST_F(KeyboardTest, NothingThatTakesTheFocusIsLeftOutOfTheRound) {
    ForEachWindow([](QWidget* window, const std::string& what) {
        const auto row = Rounds.find(what);
        if (row == Rounds.end()) {
            return;
        }
        Stops focusable;
        for (const Object& object : spoken::Tree(window)) {
            if (object.State().focusable && !object.State().disabled && !object.Control.empty()) {
                focusable.push_back(object.Control);
            }
        }
        EXPECT_THAT(focusable, UnorderedElementsAreArray(row->second)) << what;
    });
}

TEST_F(KeyboardTest, TheFocusShowsOnEveryStop) {
    ForEachWindow([](QWidget* shown, const std::string& what) {
        if (Rounds.count(what) == 0) {
            return;
        }
        const std::string first = Focused();
        do {
            QWidget* stop = QApplication::focusWidget();
            ASSERT_NE(stop, nullptr) << what;
            const QRect place(stop->mapTo(shown, QPoint(-3, -3)), stop->size() + QSize(6, 6));
            const std::string name = Focused();
            const QImage with = shown->grab(place).toImage();
            window::Key(Qt::Key_Tab);
            EXPECT_NE(shown->grab(place).toImage(), with) << what << ": " << name;
        } while (Focused() != first);
    });
}

/// The letters that go with Alt in a window.
std::multimap<QString, std::string> AccessKeys(const QWidget* window) {
    std::multimap<QString, std::string> keys;
    const auto add = [&keys](const QString& text, const QObject* owner) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty()) {
            keys.emplace(key.toString(), owner->objectName().toStdString());
        }
    };
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        if (!widget->isVisible()) {
            continue;
        }
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            add(button->text(), button);
        } else if (const auto* label = qobject_cast<const QLabel*>(widget);
                   label != nullptr && label->buddy()) {
            add(label->text(), label);
        } else if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* menu : bar->actions()) {
                add(menu->text(), menu);
            }
        }
    }
    return keys;
}

TEST_F(KeyboardTest, NoLetterIsGivenTwiceInAWindow) {
    std::size_t met = 0;
    ForEachWindow([&](QWidget* window, const std::string& what) {
        const auto keys = AccessKeys(window);
        met += keys.size();
        for (const auto& [key, owner] : keys) {
            EXPECT_EQ(keys.count(key), 1U) << what << ": " << key.toStdString() << ' ' << owner;
        }
    });
    EXPECT_GE(met, 15U);
}

TEST_F(KeyboardTest, TheWholeWayIsGoneWithoutAMouse) {
    Start();
    window::Key(Qt::Key_V, Qt::AltModifier);
    ASSERT_TRUE(window::WaitFor([this] { return program.form.Page == 1; }));
    program.form.optProcedure(0).SetFocus();
    window::Key(Qt::Key_Space);
    window::Key(Qt::Key_Return);
    ASSERT_EQ(program.form.Page, 2);
    program.form.optTestpartij(0).SetFocus();
    window::Key(Qt::Key_Down);
    EXPECT_TRUE(program.form.optTestpartij(1).Value());
    window::Key(Qt::Key_Return);
    ASSERT_EQ(program.form.Page, 3);
    EXPECT_EQ(Focused(), "UserText(0)");
    window::Key(Qt::Key_Up);
    EXPECT_EQ(program.form.UserText(0).Text(), "251");
    bool previewed = false;
    window::WhenShown(Manager, [&] {
        EXPECT_EQ(Focused(), "lstAfdrukken");
        window::Key(Qt::Key_Down);
        window::WhenShown(Preview, [&] {
            previewed = true;
            window::Key(Qt::Key_PageDown);
            window::Key(Qt::Key_Escape);
        });
        window::Key(Qt::Key_V, Qt::AltModifier);
        window::WaitFor([&] { return previewed && window::Of(Preview) == nullptr; });
        window::Key(Qt::Key_S, Qt::AltModifier);
    });
    window::Key(Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(window::WaitFor([&] { return previewed && window::Of(Manager) == nullptr; }));
    window::Key(Qt::Key_Escape);
    EXPECT_FALSE(program.form.Visible());
}

} // namespace
