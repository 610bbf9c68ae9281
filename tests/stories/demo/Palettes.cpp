#include "Palettes.h"

#include <QApplication>
#include <QStyle>

namespace {

struct Colours {
    const char* Name;
    const char* Window;
    const char* WindowText;
    const char* Base;
    const char* Text;
    const char* Button;
    const char* ButtonText;
    const char* Highlight;
    const char* HighlightedText;
    const char* Disabled;
    const char* Link;
};

constexpr Colours Desktops[] = {
    {"dark", "#353535", "#f0f0f0", "#232323", "#f0f0f0", "#404040", "#f0f0f0", "#3d7eb8", "#ffffff",
     "#8a8a8a", "#6db3f2"},
    {"mixed", "#2f3640", "#ffffff", "#ffffff", "#000000", "#e8e8e8", "#000000", "#1f6fb5", "#ffffff",
     "#909090", "#6db3f2"},
    {"contrast", "#000000", "#ffff00", "#000000", "#ffffff", "#000000", "#ffff00", "#00ffff", "#000000",
     "#00c000", "#00ffff"},
};

} // namespace

QPalette DesktopPalette(const QString& name) {
    for (const Colours& row : Desktops) {
        if (name != QLatin1String(row.Name)) {
            continue;
        }
        QPalette palette(QColor(row.Button), QColor(row.Window)); // the shades between come from these
        const std::pair<QPalette::ColorRole, const char*> roles[] = {
            {QPalette::WindowText, row.WindowText},
            {QPalette::Base, row.Base},
            {QPalette::AlternateBase, row.Base},
            {QPalette::Text, row.Text},
            {QPalette::ButtonText, row.ButtonText},
            {QPalette::Highlight, row.Highlight},
            {QPalette::HighlightedText, row.HighlightedText},
            {QPalette::ToolTipBase, row.Base},
            {QPalette::ToolTipText, row.Text},
            {QPalette::Link, row.Link},
        };
        for (const auto& [role, colour] : roles) {
            palette.setColor(role, QColor(colour));
        }
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(QPalette::Disabled, role, QColor(row.Disabled));
        }
        return palette;
    }
    return QApplication::style()->standardPalette();
}
