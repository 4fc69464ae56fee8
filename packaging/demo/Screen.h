#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <vector>

namespace quarvelle::demo {

/// The whole screen as it is now.
QImage screenPicture();

/// The screen once it has stopped changing, or after two seconds.
QImage stillScreenPicture();

/// The smallest rectangle around all pixels of about `color` (thin strokes blend with what is behind them);
/// empty when there is none.
QRect boundsOf(const QImage& picture, const QColor& color);

/// The centres of the captions that stand beside each other (`across`) or below each other in `strip`, whose
/// first pixel shows the background.
std::vector<QPoint> captions(const QImage& picture, const QRect& strip, bool across);

} // namespace quarvelle::demo
