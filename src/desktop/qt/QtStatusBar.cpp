#include <algorithm>
#include <vector>

#include <QLabel>
#include <QStatusBar>

#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "desktop/qt/Scale.h"
#include "forms/StatusBar.h"

namespace desktop::qt {

namespace {

constexpr double SideMargin = 75; // twips

class QtStatusBar final : public QtControl {
  public:
    QtStatusBar(forms::StatusBar& control, QtForm& form, QWidget* parent);

    bool FollowsWindow() const override { return true; }

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    /// At the bottom, over the whole width.
    void Place() override;

  private:
    forms::StatusBar& model_;
    QStatusBar* bar_;
    std::vector<QLabel*> panels_;
};

QtStatusBar::QtStatusBar(forms::StatusBar& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QStatusBar(parent)), model_(control),
      bar_(static_cast<QStatusBar*>(Widget())) {
    bar_->setSizeGripEnabled(false);
    bar_->setContentsMargins(ToDots(SideMargin), 0, ToDots(SideMargin), 0);
    for (int number = 1; number <= control.PanelCount(); ++number) {
        auto* panel = new QLabel(bar_);
        panel->setTextFormat(Qt::PlainText);
        panel->setObjectName(QStringLiteral("%1(%2)").arg(ToQString(control.Name())).arg(number));
        bar_->addWidget(panel, number == control.PanelCount() ? 1 : 0);
        panels_.push_back(panel);
    }
}

void QtStatusBar::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Items) {
        return;
    }
    for (int number = 1; number <= model_.PanelCount(); ++number) {
        QLabel* panel = panels_[static_cast<std::size_t>(number - 1)];
        panel->setText(ToQString(model_.Panel(number).Text));
        if (number < model_.PanelCount()) { // the last one takes what is left
            panel->setMinimumWidth(ToDots(model_.Panel(number).Width));
        }
    }
}

void QtStatusBar::Place() {
    const QSize area = bar_->parentWidget()->size();
    const int end = model_.FormEnd() ? ToDots(*model_.FormEnd()) : area.height();
    const int top = std::min(end, area.height() - ToDots(model_.LeastHeight()));
    bar_->setGeometry(0, top, area.width(), area.height() - top);
}

} // namespace

std::unique_ptr<QtControl> MakeStatusBar(forms::StatusBar& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtStatusBar>(control, form, parent);
}

} // namespace desktop::qt
