// Time from the start of the process to a window that has been painted, as a whole process: first_page
// program|empty
//
// "program" is the wizard with its first page; "empty" a window with as many plain widgets of the same kinds.
#include <cstring>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "desktop/qt/QtPlatform.h"
#include "forms/Form.h"
#include "forms/Session.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

namespace {

/// Ends the process once a window has been painted.
class EndAtFirstPaint final : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            QTimer::singleShot(0, [] { std::_Exit(0); });
        }
        return QObject::eventFilter(watched, event);
    }
};

int ShowProgram(int argc, char** argv) {
    desktop::qt::QtPlatform platform(argc, argv);
    EndAtFirstPaint end;
    qApp->installEventFilter(&end);
    state::AppState state;
    forms::Session session(platform.Services().Desktop);
    wizard::frmMain form(session, platform.Services(), state);
    session.Dispatch([&] { form.Show(); });
    platform.Run();
    return 1;
}

/// The wizard's first window has about so many of each.
int ShowEmptyWindow(int argc, char** argv) {
    const QApplication application(argc, argv);
    EndAtFirstPaint end;
    qApp->installEventFilter(&end);
    constexpr int labels = 45;
    constexpr int boxes = 6;
    constexpr int options = 5;
    constexpr int buttons = 4;
    constexpr int rowHeight = 12;
    QWidget window;
    window.resize(720, 520);
    int row = 0;
    const auto place = [&](QWidget* widget) { widget->setGeometry(10, rowHeight * row++, 200, rowHeight); };
    for (int i = 0; i < labels; ++i) {
        place(new QLabel(QStringLiteral("Tekst %1").arg(i), &window));
    }
    for (int i = 0; i < boxes; ++i) {
        place(new QLineEdit(QStringLiteral("Tekst"), &window));
    }
    for (int i = 0; i < options; ++i) {
        place(new QRadioButton(QStringLiteral("Keuze"), &window));
    }
    for (int i = 0; i < buttons; ++i) {
        place(new QPushButton(QStringLiteral("Knop"), &window));
    }
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    return std::strcmp(argv[1], "program") == 0 ? ShowProgram(argc, argv) : ShowEmptyWindow(argc, argv);
}
