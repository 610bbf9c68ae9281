#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/Label.h"

class QLabel;

namespace desktop::qt {

class QtLabel final : public QtControl {
  public:
    QtLabel(forms::Label& control, QtForm& form, QWidget* parent);

    /// This label tells what another widget is for.
    void NameWidget(QWidget* named);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void Place() override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    void ShowText();
    QString Fitting(const QString& text) const;

    forms::Label& model_;
    QLabel* label_;
    QWidget* named_ = nullptr;
};

} // namespace desktop::qt
