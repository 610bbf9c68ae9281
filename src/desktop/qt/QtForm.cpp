#include "desktop/qt/QtForm.h"

#include <QCloseEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWheelEvent>
#include <QWindow>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtDesktop.h"
#include "desktop/qt/QtText.h"
#include "forms/AccessibleNames.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/MenuBar.h"

namespace desktop::qt {

namespace {

/// The top-level widget of a form.
class QtWindow final : public QWidget {
  public:
    QtWindow(QtForm& form, Qt::WindowFlags flags);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QtForm& form_;
};

QtWindow::QtWindow(QtForm& form, Qt::WindowFlags flags) : QWidget(nullptr, flags), form_(form) {}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(Guarded(false, [this] { return form_.CloseRequested(); }));
}

void QtWindow::keyPressEvent(QKeyEvent* event) {
    Guarded([&] { form_.KeyPressed(*event, nullptr); });
}

void QtWindow::wheelEvent(QWheelEvent* event) {
    Guarded([&] { form_.WheelTurned(event->angleDelta().y()); }); // of a turn to the side this is 0
}

void QtWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Guarded([this] { form_.Resized(); });
}

bool QtWindow::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        Guarded([this] { form_.ThemeChanged(); });
    }
    return QWidget::event(event);
}

Qt::WindowFlags FlagsFor(const forms::Form& form, bool first) {
    const Qt::WindowFlags common =
        Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    const Qt::WindowFlags kind =
        first ? Qt::Window | Qt::WindowMinimizeButtonHint : Qt::WindowFlags(Qt::Dialog);
    return common | kind | (form.Resizable() ? Qt::WindowMaximizeButtonHint : Qt::WindowFlags());
}

} // namespace

QtForm::QtForm(forms::Form& form, QtDesktop& desktop)
    : form_(form), desktop_(desktop),
      window_(std::make_unique<QtWindow>(*this, FlagsFor(form, desktop.TopWindow() == nullptr))),
      area_(window_.get()), procedure_(desktop.Windows(), Handle()) {
    window_->setObjectName(ToQString(form.Name()));
    for (forms::MenuBar* bar : form.ControlsOf<forms::MenuBar>()) {
        menuBar_ = &Find(*bar);
        area_ = new QWidget(window_.get());
    }
    for (forms::Control* control : form.Controls()) {
        if (control->IsMirrored()) {
            Find(*control);
        }
    }
    Colour();
    // A label finds the control that its access key goes to only when all are there.
    for (const auto& control : controls_) {
        control->Mirror(forms::Aspect::Caption);
    }
    FormChanged();
    desktop_.Opened(form_, *this);
}

QtForm::~QtForm() {
    desktop_.Gone(form_);
    controls_.clear();
}

QtControl& QtForm::Find(forms::Control& control) {
    const auto found = byModel_.find(&control);
    return found == byModel_.end() ? Add(control) : *found->second;
}

QtControl& QtForm::Add(forms::Control& control) {
    QWidget* parent = control.Container() == nullptr ? area_ : Find(*control.Container()).Widget();
    QtControl& added = *controls_.emplace_back(MakeQtControl(control, *this, parent));
    byModel_[&control] = &added;
    added.MirrorAll();
    return added;
}

QWidget* QtForm::WidgetOf(const forms::Control& control) const {
    const auto found = byModel_.find(&control);
    return found == byModel_.end() ? nullptr : found->second->Widget();
}

// A control shares the native window of its form, so its widget's address stands for it.
std::uintptr_t QtForm::HandleOf(const forms::Control& control) {
    QWidget* widget = WidgetOf(control);
    return widget == nullptr ? Handle() : reinterpret_cast<std::uintptr_t>(widget);
}

// A control that the form has held back so far gets its widget now. Some are known by their tool tip.
void QtForm::ControlChanged(forms::Control& control, forms::Aspect aspect) {
    const bool isNew = !byModel_.contains(&control);
    QtControl& mirrored = Find(control);
    mirrored.Mirror(aspect);
    if (isNew || aspect == forms::Aspect::ToolTip) {
        NameControl(mirrored);
    }
}

void QtForm::FormChanged() {
    window_->setWindowTitle(ToQString(form_.Caption()));
    ShowSize();
    ShowPlace();
}

void QtForm::NameControls() {
    for (const auto& control : controls_) {
        NameControl(*control);
    }
}

void QtForm::NameControl(const QtControl& control) {
    if (QWidget* widget = control.Widget()) {
        widget->setAccessibleName(ToQString(AccessibleNameOf(control.Model())));
        TieLabel(control.Model(), widget);
    }
}

void QtForm::TieLabel(const forms::Control& control, QWidget* widget) {
    if (const forms::Label* label = OwnLabel(control)) {
        byModel_.at(label)->NameWidget(widget);
    }
}

void QtForm::Show(bool modal) {
    NameControls();
    ShowBounds();
    PlaceBars();
    if (!form_.Placed()) {
        MoveToMiddle();
    }
    QWidget* below = desktop_.TopWindow();
    if (modal) {
        window_->setWindowModality(Qt::ApplicationModal);
    }
    if (below != nullptr) {
        Handle();
        window_->windowHandle()->setTransientParent(below->windowHandle());
    }
    desktop_.Shown(form_);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void QtForm::Hide() {
    window_->hide();
    desktop_.Hidden(form_);
    if (loop_ != nullptr) {
        loop_->quit();
    }
}

void QtForm::RunModal() {
    QEventLoop loop;
    const QScopedValueRollback rollback(loop_, &loop);
    loop.exec();
}

std::uintptr_t QtForm::Handle() {
    return static_cast<std::uintptr_t>(window_->winId());
}

// Some desktops tell no position outside the program's windows, but that the pointer has left; while a button
// of the mouse is held it is the other way round.
bool QtForm::PointerIsOver(const forms::Control& control) {
    const QWidget* widget = WidgetOf(control);
    return widget != nullptr && widget->isVisible() && widget->underMouse() &&
           widget->rect().contains(widget->mapFromGlobal(QCursor::pos()));
}

bool QtForm::CloseRequested() {
    return form_.UserClose();
}

void QtForm::WheelTurned(int delta) {
    if (const std::int16_t turn = wheel_.Add(delta); turn != 0) {
        desktop_.Windows().SendWheel(procedure_.Handle(), turn);
    }
}

} // namespace desktop::qt
