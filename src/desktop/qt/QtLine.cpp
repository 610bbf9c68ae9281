#include <algorithm>
#include <cmath>

#include <QApplication>

#include "desktop/qt/QtColours.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/Scale.h"
#include "forms/LineControl.h"

namespace desktop::qt {

namespace {

/// A rule one dot wide.
class QtLine final : public QtControl {
  public:
    QtLine(forms::LineControl& control, QtForm& form, QWidget* parent);

  protected:
    void Place() override;
    void Colour() override;

  private:
    forms::LineControl& model_;
};

QtLine::QtLine(forms::LineControl& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QWidget(parent)), model_(control) {
    Widget()->setAutoFillBackground(true);
    Widget()->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void QtLine::Place() {
    QRect area = ToDots(std::min(model_.X1(), model_.X2()), std::min(model_.Y1(), model_.Y2()),
                        std::abs(model_.Width()), std::abs(model_.Height()));
    area.setSize(area.size().expandedTo(QSize(1, 1)));
    Widget()->setGeometry(area);
}

void QtLine::Colour() {
    QPalette palette = QApplication::palette(Widget());
    palette.setColor(QPalette::Window, ToQColor(model_.ForeColor(), palette));
    Widget()->setPalette(palette);
}

} // namespace

std::unique_ptr<QtControl> MakeLine(forms::LineControl& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtLine>(control, form, parent);
}

} // namespace desktop::qt
