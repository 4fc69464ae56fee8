#pragma once

class QColor;

namespace quarvelle {

/// The contrast of two colors as WCAG 2 defines it, from 1 for the same lightness to 21 for black and white.
double contrast(const QColor& one, const QColor& other);

/// `text`, or where its contrast to `background` is below 4.5, a lighter or darker color of the same hue with
/// that contrast. There is always one: the contrasts to black and to white have the product 21, so the larger
/// is at least 4.58.
QColor legible(const QColor& text, const QColor& background);

} // namespace quarvelle
