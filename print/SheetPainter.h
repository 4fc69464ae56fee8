#pragma once

class QPainter;

namespace quarvelle {

struct Sheet;

/// Paints a sheet on the whole of the painter's device: the frame as large as it fits above the caption, the
/// content centred there. Lengths keep their proportions, and the caption is 8 points tall on any device.
void paintSheet(QPainter& painter, const Sheet& sheet);

} // namespace quarvelle
