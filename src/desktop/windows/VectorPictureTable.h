#pragma once

#include <cstdint>
#include <span>

namespace desktop::windows {

/// A step of a path: 'M' moves to the first point, 'L' draws a line to it, 'C' a cubic curve over two handles
/// to the third, 'Z' closes the figure. Points are pairs in the units of the picture.
struct PathStep {
    char Command;
    float Points[6];
};

/// A shape of a picture. Colours are ARGB, 0 for none; width, dash and gap are in the units of the picture.
struct PictureShape {
    int FirstStep;
    int EndStep;
    std::uint32_t Fill;
    std::uint32_t Stroke;
    float Width;
    bool RoundCaps;
    bool RoundJoins;
    float Dashes[2];
};

struct PictureRow {
    const char* Name;
    float Width;
    float Height;
    int FirstShape;
    int EndShape;
};

struct PictureTable {
    std::span<const PictureRow> Pictures;
    std::span<const PictureShape> Shapes;
    std::span<const PathStep> Steps;
};

/// The program's own pictures, sorted by name. Generated from the vector files when the program is built.
const PictureTable& AllPictures();

} // namespace desktop::windows
