#pragma once

#include <memory>

#include <QColor>
#include <QWidget>

#include "machine/Bitmaps.h"

class QSvgRenderer;

namespace desktop::qt {

class QtPageBitmap;

/// File of one of the program's own pictures, whether there is such a picture or not.
QString PictureFile(const QString& name);

/// Shows one of the program's own pictures as large as its place allows, sharp at each density.
class PictureWidget final : public QWidget {
  public:
    explicit PictureWidget(QWidget* parent);
    ~PictureWidget() override;

    /// Name of the picture; empty, or a name that the program does not have, shows none.
    void SetPicture(const QString& name);
    /// Shows the page instead, from the top left on and as fine as the screen is; nullptr for none.
    void SetPage(std::shared_ptr<const machine::PageBitmap> page);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool HasPicture();
    void Paint(const QRectF& part);
    void PaintPage(const QtPageBitmap& page, const QRectF& part);

    std::unique_ptr<QSvgRenderer> renderer_;
    QString name_;
    QColor background_;
    std::shared_ptr<const machine::PageBitmap> page_;
};

} // namespace desktop::qt
