#pragma once

#include <QSizeF>

class QPainter;

namespace quarvelle {

struct Sheet;

/// The room that the caption leaves for the drawing on paper of size `paper`, in millimetres; at least one
/// each way.
QSizeF roomAboveCaption(QSizeF paper);

/// Paints a sheet over the whole of the painter's device, with its content centred above the caption. Lengths
/// in millimetres are the same on any device. A caption that is too wide for the paper is condensed.
void paintSheet(QPainter& painter, const Sheet& sheet);

} // namespace quarvelle
