#pragma once

#include <QFont>

namespace quarvelle {

/// The font of every control: 8.25 points at 96 dots per inch. Its size is in pixels, like the layout's.
QFont controlFont();

/// The font of the numbers on a board: 9.75 points.
QFont boardFont();

/// The font enlarged by `factor`, in the nearest whole number of pixels. Texts that need an exact width have
/// to be stretched as well.
QFont enlarged(QFont font, double factor);

/// The font of the notes beside a board: 7.5 points.
QFont noteFont();

} // namespace quarvelle
