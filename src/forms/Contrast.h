#pragma once

#include "forms/Colour.h"

namespace forms {

/// How well two plain colours are told apart, from 1 (not at all) to 21 (black and white): the contrast ratio
/// of the Web Content Accessibility Guidelines.
double Contrast(Colour one, Colour other);

/// What those guidelines ask for: of text, and of large text and of pictures that tell something.
inline constexpr double ContrastOfText = 4.5;
inline constexpr double ContrastOfPictures = 3;

/// `share` (0 to 1) of one plain colour in another.
Colour Mixed(Colour base, Colour added, double share);

/// The colour itself if it has the contrast `least` with the background; otherwise a lighter or darker one
/// that has. For a form's own colours, under a theme that the form does not know.
Colour Readable(Colour ink, Colour background, double least);

/// The colour itself if it keeps to the background; otherwise one nearer to the background that does. For
/// what is disabled: on a dark background a light grey would stand out most of all.
Colour Faint(Colour ink, Colour background);

} // namespace forms
