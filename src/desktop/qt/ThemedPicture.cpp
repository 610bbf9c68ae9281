#include "desktop/qt/ThemedPicture.h"

#include <memory>

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/PictureWidget.h"
#include "desktop/qt/QtColours.h"
#include "forms/PictureInks.h"

namespace desktop::qt {

namespace {

/// Draws the picture anew for each size that a button asks for.
class PictureEngine final : public QIconEngine {
  public:
    PictureEngine(QByteArray plain, QByteArray lit, QByteArray off)
        : plain_(std::move(plain)), lit_(std::move(lit)), off_(std::move(off)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
        GuardedQuietly([&] {
            const double density = painter->device()->devicePixelRatio();
            QPixmap drawn = pixmap(area.size() * density, mode, state);
            drawn.setDevicePixelRatio(density);
            painter->drawPixmap(area.topLeft(), drawn);
        });
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        return GuardedQuietly(QPixmap(), [&] { return Draw(size, mode); });
    }

    QIconEngine* clone() const override { return new PictureEngine(*this); }

  private:
    QPixmap Draw(const QSize& size, QIcon::Mode mode) const {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        QSvgRenderer(PictureOf(mode)).render(&painter);
        return drawn;
    }

    const QByteArray& PictureOf(QIcon::Mode mode) const {
        if (mode == QIcon::Disabled) {
            return off_;
        }
        return mode == QIcon::Active ? lit_ : plain_;
    }

    QByteArray plain_;
    QByteArray lit_;
    QByteArray off_;
};

class FileEngine final : public QIconEngine {
  public:
    explicit FileEngine(QString file) : file_(std::move(file)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        GuardedQuietly([&] {
            QSvgRenderer picture(file_);
            picture.setAspectRatioMode(Qt::KeepAspectRatio);
            picture.render(painter, area);
        });
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return GuardedQuietly(QPixmap(), [&] {
            QPixmap drawn(size);
            drawn.fill(Qt::transparent);
            QPainter painter(&drawn);
            paint(&painter, drawn.rect(), mode, state);
            return drawn;
        });
    }

    QIconEngine* clone() const override { return new FileEngine(*this); }

  private:
    QString file_;
};

QByteArray Contents(const QString& name) {
    QFile file(PictureFile(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A picture with all of its colours as they are on a button that cannot be pressed.
QByteArray PictureOff(const QString& name, const QColor& background) {
    QByteArray picture = Contents(name);
    constexpr qsizetype length = 7; // of a colour: "#51708f"
    for (qsizetype at = picture.indexOf('#'); at >= 0; at = picture.indexOf('#', at + length)) {
        const QColor drawn(QString::fromLatin1(picture.mid(at, length)));
        const forms::Colour shown = forms::InkOff(FromQColor(drawn), FromQColor(background));
        picture.replace(at, length, ToQColor(shown, {}).name().toLatin1());
    }
    return picture;
}

} // namespace

QByteArray ThemedPicture(const QString& name, const QColor& background) {
    QByteArray picture = Contents(name);
    for (const forms::Colour drawn : forms::ink::All) {
        const forms::Colour shown = forms::InkOn(drawn, FromQColor(background));
        if (shown != drawn) {
            picture.replace(ToQColor(drawn, {}).name().toLatin1(), ToQColor(shown, {}).name().toLatin1());
        }
    }
    return picture;
}

QIcon ThemedIcon(const QString& name, const QString& lit, const QColor& background) {
    return QIcon(new PictureEngine(ThemedPicture(name, background), ThemedPicture(lit, background),
                                   PictureOff(name, background)));
}

QIcon PictureIcon(const QString& name) {
    return QIcon(new FileEngine(PictureFile(name)));
}

} // namespace desktop::qt
