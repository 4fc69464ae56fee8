#include "widgets/Contrast.h"

#include <QColor>
#include <algorithm>
#include <cmath>

namespace quarvelle {

namespace {

/// A part of a color, from 0 to 1, in proportion to its light.
double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor legible(const QColor& text, const QColor& background) {
    constexpr double least = 4.5;
    constexpr int most = 255;
    const int step = contrast(background, Qt::white) > contrast(background, Qt::black) ? 1 : -1;
    QColor color = text;
    for (int lightness = text.lightness(); contrast(color, background) < least; lightness += step)
        color.setHsl(text.hslHue(), text.hslSaturation(), std::clamp(lightness, 0, most));
    return color;
}

} // namespace quarvelle
