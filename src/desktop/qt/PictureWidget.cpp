#include "desktop/qt/PictureWidget.h"

#include <cmath>

#include <QPaintEvent>
#include <QPainter>
#include <QSvgRenderer>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/ThemedPicture.h"

namespace desktop::qt {

QString PictureFile(const QString& name) {
    return QStringLiteral(":/pictures/%1.svg").arg(name);
}

namespace {

// Between two dots of the screen a page would look other than at its corner, line by line. Only a density
// that is no whole number leads there.
QPointF OffsetToWholeDots(const QPainter& painter) {
    const QPointF origin = painter.deviceTransform().map(QPointF(0, 0));
    const double density = painter.device()->devicePixelRatio();
    return QPointF(std::round(origin.x()) - origin.x(), std::round(origin.y()) - origin.y()) / density;
}

int CeilOf(double value) {
    return static_cast<int>(std::ceil(value));
}

int FloorOf(double value) {
    return static_cast<int>(std::floor(value));
}

} // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {}

PictureWidget::~PictureWidget() = default;

void PictureWidget::SetPicture(const QString& name) {
    if (name != name_) {
        name_ = name;
        renderer_.reset();
        update();
    }
}

// Read when it is drawn for the first time, in colours for the background that it then has.
bool PictureWidget::HasPicture() {
    const QColor background = palette().color(QPalette::Window);
    if (renderer_ == nullptr || background != background_) {
        background_ = background;
        renderer_ = std::make_unique<QSvgRenderer>();
        renderer_->load(ThemedPicture(name_, background));
        renderer_->setAspectRatioMode(Qt::KeepAspectRatio); // heeded only once there is a picture
    }
    return renderer_->isValid();
}

void PictureWidget::SetPage(std::shared_ptr<const machine::PageBitmap> page) {
    page_ = std::move(page);
    setAttribute(Qt::WA_OpaquePaintEvent, page_ != nullptr); // each dot is drawn once
    update();
}

void PictureWidget::PaintPage(const QtPageBitmap& page, const QRectF& part) {
    QPainter painter(this);
    const QPointF start = OffsetToWholeDots(painter);
    const QRectF sheet(start, page.Size(painter));
    const QRect covered(QPoint(CeilOf(sheet.left()), CeilOf(sheet.top())),
                        QPoint(FloorOf(sheet.right()) - 1, FloorOf(sheet.bottom()) - 1));
    for (const QRect& around : QRegion(rect()).subtracted(covered)) {
        painter.fillRect(around, palette().brush(backgroundRole()));
    }
    painter.translate(start);
    page.Paint(painter, part.translated(-start));
}

void PictureWidget::paintEvent(QPaintEvent* event) {
    GuardedQuietly([this, event] { Paint(event->rect()); });
}

void PictureWidget::Paint(const QRectF& part) {
    if (const auto* page = dynamic_cast<const QtPageBitmap*>(page_.get())) {
        PaintPage(*page, part);
    } else if (!name_.isEmpty() && HasPicture()) {
        QPainter painter(this);
        renderer_->render(&painter, QRectF(rect()));
    }
}

} // namespace desktop::qt
