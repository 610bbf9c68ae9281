#include "desktop/qt/QtPlatform.h"

#include <QLibraryInfo>
#include <QTranslator>

#include "desktop/qt/Accessibility.h"
#include "desktop/qt/Fonts.h"
#include "desktop/qt/Guarded.h"
#include "desktop/qt/ThemedPicture.h"

// Resources of a static library are not there until they are asked for, and that from outside any namespace.
static void LoadPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace desktop::qt {

DutchApplication::DutchApplication(int& argc, char** argv) : QApplication(argc, argv) {
    LoadPictures();
    InstallAccessibility();
    LoadPackagedFonts(); // before any text is laid out: the toolkit loads all fonts anew when one is added
    auto* translator = new QTranslator(this);
    if (translator->load(QStringLiteral("qtbase_nl"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        installTranslator(translator);
    }
    setWindowIcon(PictureIcon(QStringLiteral("program")));
    setDesktopFileName(QStringLiteral("drukkeuring"));
}

bool DutchApplication::notify(QObject* receiver, QEvent* event) {
    return Guarded(true, [&] { return QApplication::notify(receiver, event); });
}

} // namespace desktop::qt
