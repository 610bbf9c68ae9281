#include "Player.h"

#include <cstdio>
#include <utility>

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <QUrl>

namespace {

constexpr int RhythmMs = 10;
constexpr int PatienceMs = 60000;

QWidget* WindowOf(const QString& form) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == form && widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

// A user reaches a control only where it is shown and enabled, in a window that no other blocks.
QWidget* Reachable(const QString& form, const QString& control) {
    QWidget* window = WindowOf(form);
    QWidget* widget = window == nullptr ? nullptr : window->findChild<QWidget*>(control);
    QWidget* modal = QApplication::activeModalWidget();
    const bool free = widget != nullptr && widget->isVisible() && widget->isEnabled();
    return free && (modal == nullptr || modal == window) ? widget : nullptr;
}

void ClickOn(QWidget* widget, const QPoint& at) {
    QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {},
                      widget->mapTo(widget->window(), at));
}

// The window with the menu that is open over it.
QPixmap PictureOf(QWidget* widget) {
    QPixmap picture = widget->grab();
    if (QWidget* menu = QApplication::activePopupWidget()) {
        QPainter painter(&picture);
        painter.drawPixmap(widget->mapFromGlobal(menu->pos()), menu->grab());
    }
    return picture;
}

template <class Dialog>
Dialog* ShownDialog() {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog != nullptr && dialog->isVisible() ? dialog : nullptr;
}

} // namespace

Player::Player(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {}

void Player::Step(const std::string& what, std::function<bool()> ready, std::function<void()> act) {
    steps_.push_back({what, std::move(ready), std::move(act)});
}

void Player::Start() {
    Later();
}

// A timer of its own for each step: one that is still being handled would not come again inside a modal
// window.
void Player::Later() {
    QTimer::singleShot(RhythmMs, &context_, [this] { Next(); });
}

void Player::Fail(const std::string& what) {
    failure_ = what;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible()) {
            Save(widget, QStringLiteral("fout-") + widget->metaObject()->className() + widget->objectName());
        }
    }
    if (OnFailure) {
        OnFailure();
    }
}

void Player::Next() {
    if (steps_.empty() || !failure_.empty()) {
        return;
    }
    if (!steps_.front().Ready()) {
        waited_ += RhythmMs;
        if (waited_ > PatienceMs) {
            Fail(steps_.front().What);
        } else {
            Later();
        }
        return;
    }
    waited_ = 0;
    const Waiting step = std::move(steps_.front());
    steps_.pop_front();
    std::printf("%s\n", step.What.c_str());
    std::fflush(stdout);
    Later();
    step.Act();
}

void Player::Save(QWidget* widget, const QString& name) {
    const QString file = QDir(folder_).filePath(QStringLiteral("scherm-%1%2.png").arg(name, suffix_));
    if (!PictureOf(widget).save(file) && failure_.empty()) {
        Fail("cannot write " + file.toStdString());
    }
}

void Player::WaitForWindow(const QString& form) {
    Step(
        "wait for " + form.toStdString(), [form] { return WindowOf(form) != nullptr; }, [] {});
}

void Player::Picture(const QString& form, const QString& name) {
    Step(
        "picture " + name.toStdString(), [form] { return WindowOf(form) != nullptr; },
        [this, form, name] { Save(WindowOf(form), name); });
}

void Player::Click(const QString& form, const QString& control) {
    Step(
        "click " + control.toStdString(), [form, control] { return Reachable(form, control) != nullptr; },
        [form, control] {
            QWidget* widget = Reachable(form, control);
            // Beside the text of an option or a check box there may be nothing to click on.
            ClickOn(widget, {std::min(12, widget->width() / 2), widget->height() / 2});
        });
}

void Player::Hover(const QString& form, const QString& control) {
    Step(
        "hover over " + control.toStdString(),
        [form, control] { return Reachable(form, control) != nullptr; },
        [form, control] {
            QWidget* widget = Reachable(form, control);
            QCursor::setPos(widget->mapToGlobal(widget->rect().center()));
        });
}

void Player::Key(const QString& form, Qt::Key key) {
    Step(
        "key " + std::to_string(key), [form] { return WindowOf(form) != nullptr; },
        [form, key] {
            QWidget* menu = QApplication::activePopupWidget();
            QTest::keyClick(menu == nullptr ? WindowOf(form) : menu, key);
        });
}

void Player::Resize(const QString& form, const QSize& size) {
    Step(
        "resize " + form.toStdString(), [form] { return WindowOf(form) != nullptr; },
        [form, size] { WindowOf(form)->resize(size); });
}

void Player::Type(const QString& form, const QString& control, const QString& text) {
    Click(form, control);
    Step(
        "type " + text.toStdString(), [form, control] { return Reachable(form, control) != nullptr; },
        [form, control, text] {
            QWidget* box = Reachable(form, control);
            QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(box, text);
        });
}

void Player::PickRow(const QString& form, const QString& list, int row) {
    Step(
        "pick row " + std::to_string(row), [form, list] { return Reachable(form, list) != nullptr; },
        [form, list, row] {
            auto* widget = qobject_cast<QListWidget*>(Reachable(form, list));
            const QPoint at = widget->visualItemRect(widget->item(row)).center();
            ClickOn(widget->viewport(), at);
        });
}

void Player::AnswerMessage(const QString& pictureName) {
    Step(
        "answer the message", [] { return ShownDialog<QMessageBox>() != nullptr; },
        [this, pictureName] {
            auto* box = ShownDialog<QMessageBox>();
            Save(box, pictureName);
            QTest::keyClick(box, Qt::Key_Return);
        });
}

void Player::AnswerFile(const QString& file, const QString& pictureName) {
    Step(
        "save as " + file.toStdString(), [] { return ShownDialog<QFileDialog>() != nullptr; },
        [this, file, pictureName] {
            auto* dialog = ShownDialog<QFileDialog>();
            auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            if (name == nullptr) {
                Fail("the file dialog has no box for the name");
                return;
            }
            if (!pictureName.isEmpty()) {
                // In a folder of its own: nothing of this machine is to be in the picture.
                const QString shown = QDir::temp().filePath(QStringLiteral("Documenten"));
                QDir().mkpath(shown);
                dialog->setDirectory(shown);
                dialog->setSidebarUrls({QUrl::fromLocalFile(shown)});
                Save(dialog, pictureName);
                QDir().rmdir(shown);
            }
            name->setText(file); // typed, it would open a list of proposals
            QTest::keyClick(name, Qt::Key_Return);
        });
}

void Player::Close(const QString& form) {
    Step(
        "close " + form.toStdString(),
        [form] { return WindowOf(form) != nullptr && QApplication::activeModalWidget() == nullptr; },
        [form] { WindowOf(form)->close(); });
}
