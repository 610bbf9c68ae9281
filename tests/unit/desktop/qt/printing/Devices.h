#pragma once

#include <memory>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include "desktop/qt/PageDevice.h"
#include "desktop/qt/PdfDocument.h"
#include "desktop/qt/QtCanvas.h"

namespace desktop::qt {

inline constexpr double TwipsPerMillimetre = 1440 / 25.4;
inline constexpr Sheet A4{210 * TwipsPerMillimetre, 297 * TwipsPerMillimetre, 0, 0};

/// A canvas on a PDF file of A4 sheets.
class PdfFile : public PageDevice {
  public:
    explicit PdfFile(const Sheet& sheet = A4) : sheet_(sheet), file_(folder_.filePath("out.pdf")) {
        file_.open(QIODevice::WriteOnly);
        document_ = std::make_unique<PdfDocument>(file_, "Titel", sheet_);
    }

    QPainter* Painter() override { return &document_->Painter(); }
    void DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                    std::span<const QPointF> places) override {
        document_->DrawGlyphs(face, glyphs, places);
    }
    bool Begin() override { return true; }
    void NewPage() override { document_->NewPage(sheet_); }
    void EndDocument() override {
        document_->End();
        document_.reset();
        file_.close();
    }
    double LineWidth() override { return 12; }

    QString Finish() {
        if (document_ != nullptr) {
            EndDocument();
        }
        return file_.fileName();
    }

    QtCanvas Canvas{*this};

  private:
    QTemporaryDir folder_;
    Sheet sheet_;
    QFile file_;
    std::unique_ptr<PdfDocument> document_;
};

/// A canvas on a picture, as a preview has it.
class PictureFile : public PageDevice {
  public:
    PictureFile() : Image(794, 1123, QImage::Format_RGB32) {
        Image.fill(Qt::white);
        painter_.begin(&Image);
        painter_.scale(96.0 / 7200, 96.0 / 7200);
    }
    QPainter* Painter() override { return &painter_; }
    void NewPage() override {}
    void EndDocument() override { painter_.end(); }
    double LineWidth() override { return 0; }

    QImage Image;
    QtCanvas Canvas{*this};

  private:
    QPainter painter_;
};

} // namespace desktop::qt
