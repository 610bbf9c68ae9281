#include "desktop/qt/QtDesktop.h"

#include <algorithm>
#include <limits>
#include <optional>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QStyle>
#include <QSvgRenderer>
#include <QUrl>

#include "desktop/qt/ArrowPointer.h"
#include "desktop/qt/FileQuestion.h"
#include "desktop/qt/Guarded.h"
#include "desktop/qt/PictureWidget.h"
#include "desktop/qt/ProgramFolder.h"
#include "desktop/qt/QtForm.h"
#include "desktop/qt/QtText.h"
#include "desktop/qt/Scale.h"
#include "desktop/regfile/FileReplacement.h"
#include "forms/CaughtError.h"
#include "forms/Form.h"
#include "forms/Handbook.h"

namespace desktop::qt {

namespace {

forms::ScreenArea InTwips(const QRect& area) {
    return {ToTwips(area.left()), ToTwips(area.top()), ToTwips(area.width()), ToTwips(area.height())};
}

QMessageBox::Icon IconOf(forms::MessageIcon icon) {
    switch (icon) {
    case forms::MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case forms::MessageIcon::Critical:
        return QMessageBox::Critical;
    case forms::MessageIcon::Information:
        break;
    }
    return QMessageBox::Information;
}

struct MessagePicture {
    QMessageBox::Icon Icon;
    const char* ThemeName;
    const char* Picture;
    const char* Name;
};

constexpr MessagePicture Pictures[] = {
    {QMessageBox::Information, "dialog-information", "message-information", "Informatie"},
    {QMessageBox::Warning, "dialog-warning", "message-exclamation", "Waarschuwing"},
    {QMessageBox::Critical, "dialog-error", "message-critical", "Fout"},
};

/// Gives the icon of a message box its name, and the program's own picture where the desktop has no icon
/// theme: the toolkit then has only bitmaps, which are coarse on a dense screen.
void SharpenIcon(QMessageBox& box) {
    // Not setIconPixmap: the box would no longer know its kind, which assistive technology reads.
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
    for (const MessagePicture& row : Pictures) {
        if (label == nullptr || row.Icon != box.icon()) {
            continue;
        }
        label->setAccessibleName(QString::fromLatin1(row.Name));
        if (QIcon::hasThemeIcon(QString::fromLatin1(row.ThemeName))) {
            continue;
        }
        const int size = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
        const double density = box.devicePixelRatioF();
        QPixmap picture(QSize(size, size) * density);
        picture.setDevicePixelRatio(density);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QSvgRenderer(PictureFile(QString::fromLatin1(row.Picture)))
            .render(&painter, QRectF(0, 0, size, size));
        painter.end();
        label->setPixmap(picture);
    }
}

/// The widget of a form's or a control's handle; nullptr if it is gone.
QWidget* WidgetOf(std::uintptr_t handle) {
    if (QWidget* window = QWidget::find(static_cast<WId>(handle))) {
        return window;
    }
    const QWidgetList all = QApplication::allWidgets();
    const auto found = std::find_if(all.begin(), all.end(), [handle](const QWidget* widget) {
        return reinterpret_cast<std::uintptr_t>(widget) == handle;
    });
    return found == all.end() ? nullptr : *found;
}

} // namespace

QtDesktop::QtDesktop() {
    // The program ends when its forms are gone, which is not the same as a window that is hidden for a
    // moment.
    QApplication::setQuitOnLastWindowClosed(false);
    qApp->installEventFilter(this);
    toldBefore_ = TellFailuresOn(this);
}

QtDesktop::~QtDesktop() {
    TellFailuresOn(toldBefore_);
    SetMousePointer(forms::PointerDefault);
}

std::unique_ptr<forms::FormPeer> QtDesktop::CreatePeer(forms::Form& form) {
    return std::make_unique<QtForm>(form, *this);
}

void QtDesktop::Hidden(const forms::Form& form) {
    forms_.Hidden(form);
    if (QWidget* top = TopWindow()) {
        top->activateWindow();
    } else if (running_) {
        QApplication::quit();
    }
}

QWidget* QtDesktop::TopWindow() const {
    const QtForm* top = forms_.TopPeer();
    return top == nullptr ? nullptr : top->Window();
}

void QtDesktop::Run() {
    if (!forms_.Empty()) {
        running_ = true;
        QApplication::exec();
        running_ = false;
    }
}

void QtDesktop::RunModal(forms::Form& form) {
    if (QtForm* peer = forms_.PeerOf(form)) {
        peer->RunModal();
    }
}

void QtDesktop::Yield() {
    QCoreApplication::processEvents();
}

void QtDesktop::MsgBox(const std::string& text, forms::MessageIcon icon, const std::string& title) {
    QMessageBox box(IconOf(icon), ToQString(title), ToQString(text), QMessageBox::Ok, TopWindow());
    box.setTextFormat(Qt::PlainText);
    SharpenIcon(box);
    const ArrowPointer arrow;
    box.exec();
    if (QWidget* top = TopWindow()) {
        top->activateWindow();
    }
}

void QtDesktop::UnhandledError(const base::RuntimeError& error) {
    MsgBox(forms::UnhandledErrorText(error), forms::MessageIcon::Critical, forms_.Title());
}

void QtDesktop::ShowHandbook(const std::string& section) {
    const QDir folder = FromProgram(DRUKKEURING_HANDBOOK);
    const QString page = folder.filePath(ToQString(forms::HandbookPage(section)));
    if (!QFile::exists(page) || !QDesktopServices::openUrl(QUrl::fromLocalFile(page))) {
        const QString file =
            QDir::toNativeSeparators(folder.filePath(QString::fromLatin1(forms::HandbookFile)));
        forms::TellHandbookNotOpened(*this, FromQString(file), forms_.Title());
    }
}

std::string QtDesktop::AskFileToSave(const std::string& proposal) {
    const std::optional<QString> file =
        AskForFile(ToQString(proposal),
                   {QStringLiteral("Opslaan als tekstbestand"),
                    QStringLiteral("Tekstbestanden (*.txt);;Alle bestanden (*)"), QStringLiteral(".txt")});
    return file ? file->toStdString() : std::string();
}

bool QtDesktop::SaveText(const std::string& file, const std::string& text) {
    regfile::FileReplacement replacement;
    return replacement.Begin(QFile::encodeName(ToQString(file)).toStdString()) == 0 &&
           replacement.Write(text) == 0 && replacement.Commit() == 0;
}

std::int16_t QtDesktop::GetKeyState(int virtualKey) {
    constexpr std::int16_t down = std::numeric_limits<std::int16_t>::min();
    return virtualKey == forms::key::Tab && tabDown_ ? down : std::int16_t{0};
}

bool QtDesktop::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const auto* pressed = static_cast<QKeyEvent*>(event);
        if (pressed->key() == Qt::Key_Tab || pressed->key() == Qt::Key_Backtab) {
            tabDown_ = event->type() == QEvent::KeyPress || pressed->isAutoRepeat();
        }
        break;
    }
    case QEvent::ApplicationDeactivate: // the key may be let go elsewhere
        tabDown_ = false;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void QtDesktop::SetMousePointer(int pointer) {
    const bool wanted = pointer == forms::PointerHourglass;
    if (wanted == hourglass_) {
        return;
    }
    hourglass_ = wanted;
    if (hourglass_) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

void QtDesktop::LockWindowUpdate(std::uintptr_t window) {
    if (locked_ != nullptr) {
        locked_->setUpdatesEnabled(true);
        locked_ = nullptr;
    }
    if (window != 0) {
        locked_ = WidgetOf(window);
        if (locked_ != nullptr) {
            locked_->setUpdatesEnabled(false);
        }
    }
}

forms::ScreenArea QtDesktop::Screen() {
    return InTwips(QGuiApplication::primaryScreen()->geometry());
}

forms::ScreenArea QtDesktop::WorkArea() {
    return InTwips(QGuiApplication::primaryScreen()->availableGeometry());
}

} // namespace desktop::qt
