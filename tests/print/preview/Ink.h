#pragma once

#include <algorithm>
#include <climits>
#include <optional>

#include <QImage>
#include <QRect>

/// The dark dots of an area: how far they reach, and their centre of gravity; in dots.
struct Ink {
    int left = INT_MAX;
    int top = INT_MAX;
    int right = INT_MIN;
    int bottom = INT_MIN;
    double x = 0;
    double y = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};

inline std::optional<Ink> InkIn(const QImage& picture, const QRect& area) {
    constexpr int light = 225;
    Ink ink;
    double weight = 0;
    const QRect within = area.intersected(picture.rect());
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x) {
            const int grey = qGray(picture.pixel(x, y));
            if (grey < light) {
                ink.left = std::min(ink.left, x);
                ink.right = std::max(ink.right, x);
                ink.top = std::min(ink.top, y);
                ink.bottom = std::max(ink.bottom, y);
            }
            weight += 255 - grey;
            ink.x += x * (255 - grey);
            ink.y += y * (255 - grey);
        }
    }
    if (ink.left > ink.right) {
        return std::nullopt;
    }
    ink.x /= weight;
    ink.y /= weight;
    return ink;
}
