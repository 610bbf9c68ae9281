#pragma once

#include <optional>
#include <string>

#include "base/Units.h"

namespace desktop::cups {

/// A sheet by its sides, upright or not; twips.
struct SheetSize {
    double Width = 0;
    double Height = 0;
};

/// The sheet that three forms make, and what it is called.
inline constexpr const char* FormSheetName = "Acceptgiro 210 x 304,8 mm";
inline constexpr SheetSize FormSheet = {210 / base::MillimetresPerInch * base::TwipsPerInch,
                                        12 * base::TwipsPerInch};

/// The longest side of a sheet in twips: 200 inches, as of a PDF's page.
inline constexpr double LongestSide = 200 * base::TwipsPerInch;

/// True if no side differs by more than half a millimetre: one is cut from the same paper as the other.
bool IsSameSheet(const SheetSize& a, const SheetSize& b);

/// The size in the keyword of a size that one can make up, as a PPD has it ("Custom.210x304.8mm") or as a
/// printer's attributes have it ("custom_210x304.8mm_210x304.8mm"); nothing for any other keyword.
std::optional<SheetSize> CustomSize(const std::string& keyword);

/// The keyword of such a size, to a hundredth of a millimetre.
std::string PpdKeyword(const SheetSize& size);
std::string PwgKeyword(const SheetSize& size);

/// "210 x 304,8 mm"
std::string Measures(const SheetSize& size);

/// Hundredths of a millimetre, the unit of a printer's attributes, to twips and back.
double TwipsOfHundredths(int hundredths);
int HundredthsOf(double twips);

} // namespace desktop::cups
