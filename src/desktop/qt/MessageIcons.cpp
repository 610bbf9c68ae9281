#include "desktop/qt/MessageIcons.h"

#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QSvgRenderer>

#include "desktop/qt/PictureWidget.h"

namespace desktop::qt {

namespace {

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

} // namespace

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

} // namespace desktop::qt
