#include "forms/PictureInks.h"

#include "forms/Contrast.h"

namespace forms {

namespace {

Colour Lit(Colour background) {
    return Readable(ink::SignLit, background, ContrastOfPictures);
}

// The field stays nearer to the background than the sign on it: on a dark one it is a tinge.
Colour FieldOn(Colour background) {
    constexpr double tinge = 0.2;
    const Colour lit = Lit(background);
    const bool nearer = Contrast(ink::Field, background) < Contrast(lit, background);
    return nearer ? ink::Field : Mixed(background, lit, tinge);
}

} // namespace

Colour InkOn(Colour drawn, Colour background) {
    switch (drawn) {
    case ink::Sign:
        return Readable(drawn, background, ContrastOfPictures);
    case ink::SignLit:
        return Lit(background);
    case ink::SignOff:
        return Faint(drawn, background);
    case ink::Field:
        return FieldOn(background);
    default:
        return drawn;
    }
}

Colour InkOff(Colour drawn, Colour background) {
    constexpr double share = 0.4;
    const bool sign = drawn == ink::Sign || drawn == ink::SignLit || drawn == ink::SignOff;
    return sign ? InkOn(ink::SignOff, background) : Mixed(background, drawn, share);
}

} // namespace forms
