#include <algorithm>

#include <QEvent>
#include <QLabel>
#include <QStyle>
#include <QStyleOptionButton>

#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtForm.h"
#include "desktop/qt/QtText.h"
#include "desktop/qt/Scale.h"
#include "desktop/qt/TextRoom.h"
#include "forms/AccessKeys.h"
#include "forms/Label.h"
#include "forms/OptionButton.h"

namespace desktop::qt {

namespace {

/// A text in which no "&" marks an access key.
QString WithoutMarks(QString text) {
    return text.replace(QStringLiteral("&"), QStringLiteral("&&"));
}

class QtLabel final : public QtControl {
  public:
    QtLabel(forms::Label& control, QtForm& form, QWidget* parent);

    void NameWidget(QWidget* named) override;

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void Place() override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    void ShowText();
    /// The logical dot at which the text of a label of this form begins.
    int StartOf(const forms::Label& label) const;
    int CaptionOf(const forms::OptionButton& option) const;
    int EndOf(const forms::Label& label) const;
    QString Fitting(const QString& text) const;

    forms::Label& model_;
    QLabel* label_;
    QWidget* named_ = nullptr;
};

QtLabel::QtLabel(forms::Label& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QLabel(parent)), model_(control), label_(static_cast<QLabel*>(Widget())) {
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    label_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

int QtLabel::CaptionOf(const forms::OptionButton& option) const {
    const QWidget* button = Form().WidgetOf(option);
    QStyleOptionButton drawn;
    drawn.initFrom(button);
    return ToDots(option.Left()) +
           button->style()->subElementRect(QStyle::SE_RadioButtonContents, &drawn, button).left();
}

// With the blank behind it.
int QtLabel::EndOf(const forms::Label& label) const {
    const QString text = ToQString(label.ShownCaption());
    const int blank = text.endsWith(u' ') ? 0 : label_->fontMetrics().horizontalAdvance(u' ');
    return StartOf(label) + Form().WidgetOf(label)->fontMetrics().horizontalAdvance(text) + blank;
}

int QtLabel::StartOf(const forms::Label& label) const {
    if (label.Below() != nullptr) {
        return CaptionOf(*label.Below());
    }
    return label.Behind() == nullptr ? ToDots(label.Left()) : EndOf(*label.Behind());
}

// The first line keeps its middle where the design put it, beside the middle of its box and of other labels,
// also where the real font is lower than the line that the design gave it.
void QtLabel::Place() {
    QRect area = ToDots(model_.Left(), model_.Top(), model_.Width(), model_.Height());
    if (model_.Behind() != nullptr) {
        area.moveLeft(StartOf(model_));
    } else {
        area.setLeft(StartOf(model_));
    }
    label_->setGeometry(area);
    const int room = ToDots(model_.FirstLineHeight()) - label_->fontMetrics().height();
    label_->setContentsMargins(0, std::max(0, room / 2), 0, 0);
    ShowText();
}

/// The text, or as much of it as the label has room for: half a line at the lower edge is not readable. A
/// label that nobody sees is not measured; it is when it comes on show.
QString QtLabel::Fitting(const QString& text) const {
    if (!label_->isVisible()) {
        return text;
    }
    const QRect room = label_->contentsRect();
    const QFontMetrics metrics = label_->fontMetrics();
    const auto fits = [&](const QString& wanted) {
        return metrics.boundingRect(QRect(0, 0, room.width(), QWIDGETSIZE_MAX), Qt::TextWordWrap, wanted)
                   .height() <= room.height();
    };
    if (HasAmpleRoom(text, QFontMetricsF(label_->font(), label_), room.size()) || fits(text) ||
        metrics.height() > room.height()) {
        return text;
    }
    const auto cut = [&text](qsizetype length) { return text.left(length).trimmed() + QChar(0x2026); };
    qsizetype shorter = 0;
    qsizetype longer = text.size();
    while (longer - shorter > 1) {
        const qsizetype middle = (shorter + longer) / 2;
        (fits(cut(middle)) ? shorter : longer) = middle;
    }
    return cut(shorter);
}

void QtLabel::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Caption) {
        return;
    }
    ShowText();
}

void QtLabel::NameWidget(QWidget* named) {
    named_ = named;
    ShowText();
}

void QtLabel::ShowText() {
    // The toolkit reads a "&" as a mark only where the label has a control to go to.
    const forms::Control* target = AccessKeyTarget(model_);
    label_->setBuddy(target == nullptr ? named_ : Form().WidgetOf(*target));
    const QString text = ToQString(model_.ShownCaption());
    const QString shown = Fitting(text);
    label_->setText(target == nullptr && named_ != nullptr ? WithoutMarks(shown) : shown);
    label_->setToolTip(PlainToolTip(shown == text ? ToQString(model_.ToolTipText()) : text));
}

bool QtLabel::Filter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        model_.UserAccessKey();
        return true;
    }
    if (event->type() == QEvent::Show) {
        ShowText();
    }
    return QtControl::Filter(watched, event);
}

} // namespace

std::unique_ptr<QtControl> MakeLabel(forms::Label& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtLabel>(control, form, parent);
}

} // namespace desktop::qt
