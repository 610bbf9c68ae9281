#include "forms/PictureInks.h"

#include "forms/Contrast.h"

namespace platform {

namespace {

forms::Colour Lit(forms::Colour background) {
    return forms::Readable(ink::SignLit, background, forms::ContrastOfPictures);
}

// The field stays nearer to the background than the sign on it: on a dark one it is a tinge.
forms::Colour FieldOn(forms::Colour background) {
    constexpr double tinge = 0.2;
    const forms::Colour lit = Lit(background);
    const bool nearer = forms::Contrast(ink::Field, background) < forms::Contrast(lit, background);
    return nearer ? ink::Field : forms::Mixed(background, lit, tinge);
}

} // namespace

forms::Colour InkOn(forms::Colour drawn, forms::Colour background) {
    switch (drawn) {
    case ink::Sign:
        return forms::Readable(drawn, background, forms::ContrastOfPictures);
    case ink::SignLit:
        return Lit(background);
    case ink::SignOff:
        return forms::Faint(drawn, background);
    case ink::Field:
        return FieldOn(background);
    default:
        return drawn;
    }
}

} // namespace platform
