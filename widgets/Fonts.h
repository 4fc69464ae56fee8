#pragma once

#include <QFont>

namespace quarvelle {

/// The font of every control: 8.25 points at 96 dots an inch, sized in pixels because the layout is.
QFont controlFont();

/// The drawing surface's font: 9.75 points.
QFont boardFont();

/// A font of the nearest size, since sizes are whole pixels; what is to have an exact width is stretched.
QFont enlarged(QFont font, double factor);

/// The font of what stands beside a board: 7.5 points.
QFont noteFont();

} // namespace quarvelle
