#include "desktop/qt/Outlines.h"

#include <QApplication>
#include <QStyle>
#include <algorithm>
#include <array>

#include "desktop/qt/QtColours.h"
#include "forms/Contrast.h"

namespace desktop::qt {

namespace {

using forms::ControlKind;

constexpr std::array OwnDrawing{ControlKind::CheckBox, ControlKind::ComboBox,     ControlKind::CommandButton,
                                ControlKind::ListBox,  ControlKind::OptionButton, ControlKind::ProgressBar,
                                ControlKind::TextBox,  ControlKind::UpDown};

// The style makes its outlines from the window's colour, darker by this much (in percent).
constexpr int OutlineDarker = 140;
constexpr double ContrastOfOutline = 1.4;

// A theme of high contrast wants its outlines strong; in another one the focus has to stand out of them.
constexpr double ContrastOfStrongThemes = 15;
constexpr double StrongOutline = 3;
constexpr double CalmOutline = 1.4;

} // namespace

bool DrawsItself(ControlKind kind) {
    return std::find(OwnDrawing.begin(), OwnDrawing.end(), kind) != OwnDrawing.end();
}

void Outline(QPalette& palette, const QPalette& theme) {
    const QColor window = theme.color(QPalette::Window);
    const forms::Colour background = FromQColor(window);
    const double contrast = forms::Contrast(FromQColor(window.darker(OutlineDarker)), background);
    if (contrast >= ContrastOfOutline || QApplication::style()->name() != QLatin1String("fusion")) {
        return;
    }
    const double ofTexts = forms::Contrast(FromQColor(theme.color(QPalette::WindowText)), background);
    const forms::Colour seen = forms::Readable(
        background, background, ofTexts >= ContrastOfStrongThemes ? StrongOutline : CalmOutline);
    palette.setColor(QPalette::Window, ToQColor(seen, theme).lighter(OutlineDarker));
}

} // namespace desktop::qt
