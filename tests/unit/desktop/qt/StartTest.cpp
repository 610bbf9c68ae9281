// The program itself, on a machine that refuses what it needs at its start. It ends with a word to the user,
// and not by a signal. The linker leads two constructors here (--wrap); the program's own main is
// ProgramMain.
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string_view>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

int ProgramMain(int argc, char** argv);

namespace {

std::string_view refused;
int told = 0;

void Refuse(std::string_view what) {
    if (refused == what) {
        throw std::bad_alloc();
    }
}

void AnswerBoxes() {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            ++told;
            box->accept();
        }
    });
    timer->start(1);
}
Q_COREAPP_STARTUP_FUNCTION(AnswerBoxes)

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
extern "C" {
void __real__ZN7desktop2qt9QtDesktopC1Ev(void* self);
void __wrap__ZN7desktop2qt9QtDesktopC1Ev(void* self) {
    Refuse("desktop");
    __real__ZN7desktop2qt9QtDesktopC1Ev(self);
}
void __real__ZN6wizard7frmMainC1ERN5forms7SessionERN7machine8PlatformERN5state8AppStateE(void*, void*, void*,
                                                                                         void*);
void __wrap__ZN6wizard7frmMainC1ERN5forms7SessionERN7machine8PlatformERN5state8AppStateE(void* self,
                                                                                         void* session,
                                                                                         void* machine,
                                                                                         void* state) {
    Refuse("form");
    __real__ZN6wizard7frmMainC1ERN5forms7SessionERN7machine8PlatformERN5state8AppStateE(self, session,
                                                                                        machine, state);
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

/// Its argument is what is refused: "desktop", where there is none yet to tell it on, or "form".
int main(int argc, char** argv) {
    refused = argc > 1 ? argv[1] : "";
    const int expected = refused == "form" ? 1 : 0;
    const int status = ProgramMain(argc, argv);
    std::printf("status %d, %d messages\n", status, told);
    return status == EXIT_FAILURE && told == expected ? EXIT_SUCCESS : EXIT_FAILURE;
}
