#include "desktop/qt/ThemedPicture.h"

#include <memory>

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
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
    PictureEngine(QByteArray plain, QByteArray lit) : plain_(std::move(plain)), lit_(std::move(lit)) {}

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
        QSvgRenderer(mode == QIcon::Active ? lit_ : plain_).render(&painter);
        painter.end();
        if (mode != QIcon::Disabled) {
            return drawn;
        }
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }

    QByteArray plain_;
    QByteArray lit_;
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

} // namespace

QByteArray ThemedPicture(const QString& name, const QColor& background) {
    QFile file(PictureFile(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray picture = file.readAll();
    for (const forms::Colour drawn : forms::ink::All) {
        const forms::Colour shown = forms::InkOn(drawn, FromQColor(background));
        if (shown != drawn) {
            picture.replace(ToQColor(drawn, {}).name().toLatin1(), ToQColor(shown, {}).name().toLatin1());
        }
    }
    return picture;
}

QIcon ThemedIcon(const QString& name, const QString& lit, const QColor& background) {
    return QIcon(new PictureEngine(ThemedPicture(name, background), ThemedPicture(lit, background)));
}

QIcon PictureIcon(const QString& name) {
    return QIcon(new FileEngine(PictureFile(name)));
}

} // namespace desktop::qt
