#include "platform/qt/PictureWidget.h"

#include <QFile>
#include <QPainter>

#include <cmath>

#include "platform/qt/QtBitmaps.h"

namespace platform::qt {

QString PictureFile(const QString& name) {
    return QStringLiteral(":/pictures/%1.svg").arg(name);
}

namespace {

// Between two dots of the screen a picture of dots would lose its edge. Only a density that is no whole
// number leads there.
QPointF OffsetToWholeDots(const QPainter& painter) {
    const QPointF origin = painter.deviceTransform().map(QPointF(0, 0));
    const double density = painter.device()->devicePixelRatio();
    return QPointF(std::round(origin.x()) - origin.x(), std::round(origin.y()) - origin.y()) / density;
}

} // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {
    renderer_.setAspectRatioMode(Qt::KeepAspectRatio);
}

void PictureWidget::SetPicture(const QString& name) {
    if (name == name_) {
        return;
    }
    name_ = name;
    const QString file = PictureFile(name);
    named_ = QFile::exists(file) && renderer_.load(file);
    update();
}

void PictureWidget::SetPage(std::shared_ptr<const PageBitmap> page) {
    page_ = std::move(page);
    update();
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
    if (const auto* page = dynamic_cast<const QtPageBitmap*>(page_.get())) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.translate(OffsetToWholeDots(painter));
        painter.drawImage(QPointF(0, 0), page->Image());
    } else if (named_) {
        QPainter painter(this);
        renderer_.render(&painter, QRectF(rect()));
    }
}

} // namespace platform::qt
