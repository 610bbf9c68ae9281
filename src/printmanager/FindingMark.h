#pragma once

#include <initializer_list>

#include "forms/PictureBox.h"
#include "precheck/Finding.h"

namespace printmanager {

/// The program's picture of how bad a finding is.
const char* PictureOf(precheck::Gravity gravity);

/// Lets a picture tell the worst of the findings that can be mended in one of these places, as its tool tip,
/// by which a screen reader knows it as well. It is hidden where there is none.
void TellAt(forms::PictureBox& picture, const precheck::Findings& findings,
            std::initializer_list<precheck::Spot> spots);

} // namespace printmanager
