#include "desktop/qt/Fonts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

#include <QFile>
#include <QFontDatabase>
#include <QHash>
#include <QRawFont>
#include <QSet>

#include "base/Text.h"
#include "desktop/qt/BoldFace.h"
#include "desktop/qt/PageUnits.h"
#include "desktop/qt/ProgramFolder.h"

namespace desktop::qt {

namespace {

struct PackagedFont {
    const char* Family;
    const char* Plain;
    const char* Bold;
};

// Wine's own fonts are ordinary TrueType files, but its package leaves them where the desktop does not look.
constexpr std::array<const char*, 3> FontFolders = {"/usr/share/wine/fonts/", "/usr/local/share/wine/fonts/",
                                                    "/opt/wine-stable/share/wine/fonts/"};
constexpr std::array<PackagedFont, 1> PackagedFonts = {{
    {"Tahoma", "tahoma.ttf", "tahomabd.ttf"},
}};

/// Names of families that are known to be installed. A document uses two.
constexpr qsizetype MostFamilies = 64;

/// Those that came with the program, for a system that has no package of them.
QDir OwnFonts() {
    return FromProgram(DRUKKEURING_FONTS);
}

bool AddFile(const char* file) {
    QStringList paths{OwnFonts().filePath(QString::fromLatin1(file))};
    for (const char* folder : FontFolders) {
        paths << QString::fromLatin1(folder) + QString::fromLatin1(file);
    }
    const auto found =
        std::find_if(paths.begin(), paths.end(), [](const QString& path) { return QFile::exists(path); });
    return found != paths.end() && QFontDatabase::addApplicationFont(*found) >= 0;
}

/// The OCR fonts among the program's own, whatever the desktop has: to ask for a family costs more.
void AddOwnOcrFonts() {
    const QDir folder = OwnFonts();
    for (const QString& file : folder.entryList({QStringLiteral("*.otf")}, QDir::Files)) {
        QFontDatabase::addApplicationFont(folder.filePath(file));
    }
}

/// The bold files of families whose plain ones have been added. Each is added when a bold face is first asked
/// for: most runs of the program show and print none.
QHash<QString, const char*>& WaitingBoldFiles() {
    static QHash<QString, const char*> files;
    return files;
}

QString Comparable(const QString& family) {
    QString bare;
    for (const QChar c : family) {
        if (c != u' ' && c != u'-') {
            bare += c.toCaseFolded();
        }
    }
    return bare;
}

} // namespace

void LoadPackagedFonts() {
    static std::once_flag once;
    std::call_once(once, [] {
        AddOwnOcrFonts();
        for (const PackagedFont& font : PackagedFonts) {
            if (QFontDatabase::hasFamily(QString::fromLatin1(font.Family))) {
                continue;
            }
            AddFile(font.Plain);
            WaitingBoldFiles().insert(QString::fromLatin1(font.Family).toCaseFolded(), font.Bold);
        }
    });
}

std::string ResolveFamily(const std::string& wanted) {
    // To ask for a family searches the desktop's font configuration each time.
    static QSet<QString> installed;
    LoadPackagedFonts();
    const QString name = QString::fromStdString(wanted);
    if (installed.contains(name)) {
        return wanted;
    }
    // To look through the names first saves a family that is there the search for what replaces it.
    const QStringList families = QFontDatabase::families();
    if (families.contains(name) || QFontDatabase::hasFamily(name)) {
        if (installed.size() < MostFamilies) {
            installed.insert(name);
        }
        return wanted;
    }
    const QString comparable = Comparable(name);
    if (comparable.isEmpty()) {
        return wanted;
    }
    for (const QString& family : families) {
        if (Comparable(family) == comparable) {
            return family.toStdString();
        }
    }
    return wanted;
}

bool IsSameFamily(const std::string& one, const std::string& other) {
    return Comparable(QString::fromStdString(one)) == Comparable(QString::fromStdString(other));
}

void ProvideBold(const QFont& font) {
    static QSet<QString> seen;
    const QString family = font.family();
    if (seen.contains(family)) {
        return;
    }
    seen.insert(family);
    LoadPackagedFonts();
    if (const char* file = WaitingBoldFiles().take(family.toCaseFolded())) {
        AddFile(file);
    }
    QFont plain(font);
    plain.setBold(false);
    QFont bold(font);
    bold.setBold(true);
    if (const QByteArray face = MakeBold(QRawFont::fromFont(plain), QRawFont::fromFont(bold));
        !face.isEmpty()) {
        QFontDatabase::addApplicationFontFromData(face);
    }
}

QFont DesignFont(const machine::FontSpec& font) {
    QFont design;
    design.setFamilies({QString::fromStdString(ResolveFamily(font.Name))});
    // Negated so that a size that is no number counts as the smallest.
    const double size = !(font.Size > 0) ? 0 : std::min(font.Size, machine::LargestDrawnPoints);
    design.setPixelSize(std::max(1, static_cast<int>(std::lround(size * UnitsPerPoint))));
    design.setBold(font.Bold);
    design.setKerning(false);
    design.setStyleStrategy(QFont::PreferNoShaping);
    design.setHintingPreference(QFont::PreferNoHinting);
    if (font.Bold) {
        ProvideBold(design);
    }
    return design;
}

} // namespace desktop::qt
