#pragma once

#include <QFontMetrics>
#include <QString>
#include <vector>

#include "board/Place.h"

namespace quarvelle {

/// The line of `kind` through a cell of the state's square: its cells as a person reads them, rows from the
/// left, all others from the top, but a diagonal that goes up from the bottom.
std::vector<Place> placesOnLine(const ProgramState& state, int kind, Place through);

/// What a person calls that line: "Row 3", "Diagonal going down from row 1, column 4, around the edge",
/// "Cross-diagonal around row 2, column 2".
QString lineName(const ProgramState& state, int kind, Place through);

/// The numbers on a line added up, its blank left out: "8 + (-15) + 3 = -4; the Magic Total is 65." Where
/// that is wider than `room` pixels, numbers are left out, from the middle on, but never the sum.
QString lineSum(const ProgramState& state, const std::vector<Place>& line, const QFontMetrics& metrics,
                int room);

/// The numbers on a line as they are spoken: "8, 15, blank, 3, 20".
QString lineNumbers(const ProgramState& state, const std::vector<Place>& line);
/// Their sum: "Sum 46, Magic Total 65".
QString spokenSum(const ProgramState& state, const std::vector<Place>& line);

} // namespace quarvelle
