#include "platform/qt/PictureWidget.h"

#include <QFile>
#include <QPainter>

#include "platform/qt/QtBitmaps.h"
#include "platform/qt/Scale.h"

namespace platform::qt {

QString PictureFile(const QString& name) {
    return QStringLiteral(":/pictures/%1.svg").arg(name);
}

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {
    renderer_.setAspectRatioMode(Qt::KeepAspectRatio);
}

void PictureWidget::SetPicture(const QString& name) {
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
        painter.drawImage(QRectF(0, 0, page->Width() * DotsPerTwip(), page->Height() * DotsPerTwip()),
                          page->Image());
    } else if (named_) {
        QPainter painter(this);
        renderer_.render(&painter, QRectF(rect()));
    }
}

} // namespace platform::qt
