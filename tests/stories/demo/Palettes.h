#pragma once

#include <QPalette>
#include <QString>

/// The colours of a desktop of this name: "light", "dark", "mixed" (light boxes on dark
/// windows) or "contrast" (yellow and white upon black).
QPalette DesktopPalette(const QString& name);
