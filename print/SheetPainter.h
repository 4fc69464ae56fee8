#pragma once

#include <QSizeF>

class QPainter;

namespace quarvelle {

struct Sheet;

/// What the caption leaves of a paper for the drawing, in millimetres; never less than one.
QSizeF roomAboveCaption(QSizeF paper);

/// Paints a sheet on the whole of the painter's device, its content centred above the caption. Lengths are as
/// long on any device; a caption that is too wide for the paper is condensed.
void paintSheet(QPainter& painter, const Sheet& sheet);

} // namespace quarvelle
