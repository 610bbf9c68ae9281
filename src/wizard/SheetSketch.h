#pragma once

#include <memory>
#include <string>

#include "machine/Bitmaps.h"
#include "precheck/Finding.h"

namespace wizard {

/// The sheet of a finding in outline, on a picture of this size in twips: the sheet, what the printer reaches
/// of it, the forms, and a stroke for each text; what the finding is about in red. RuntimeError if there is
/// no memory for a picture.
std::shared_ptr<const machine::PageBitmap>
DrawSheet(machine::Bitmaps& bitmaps, const precheck::SheetSketch& sketch, double width, double height);

/// The ten digits of a font as it prints, as wide as a picture of this size allows. RuntimeError as above.
std::shared_ptr<const machine::PageBitmap> DrawDigits(machine::Bitmaps& bitmaps, const std::string& fontName,
                                                      double width, double height);

} // namespace wizard
