#pragma once

#include "machine/Canvas.h"

namespace desktop::qt {

/// The font of most texts that the tests print.
inline const machine::FontSpec Tahoma9 = {"Tahoma", 9, false};

} // namespace desktop::qt
