#include "precheck/SheetPrinter.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Units.h"

namespace precheck {

namespace {

/// Dots so fine that an offset loses nothing in them.
constexpr int DotsPerTwip = 1000;
constexpr int DotsPerInch = DotsPerTwip * static_cast<int>(base::TwipsPerInch);

} // namespace

int SheetPrinter::GetDeviceCaps(int item) {
    switch (item) {
    case machine::CapsLogPixelsX:
    case machine::CapsLogPixelsY:
        return DotsPerInch;
    case machine::CapsPhysicalOffsetX:
        return base::ToInt32(sheet_.Left * DotsPerTwip);
    case machine::CapsPhysicalOffsetY:
        return base::ToInt32(sheet_.Top * DotsPerTwip);
    default:
        throw base::InvalidPropertyValue();
    }
}

} // namespace precheck
