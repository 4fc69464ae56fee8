#pragma once

#include <QDate>
#include <QStringList>
#include <cstdint>
#include <string>

namespace quarvelle {

struct PrintOrder;
struct ProgramState;

/// The window title while a batch is made: how many are left to print, out of how many, and of what.
std::string batchTitle(const ProgramState& state);

/// The line under the state's square, the `number`th of its batch: "3. Magic Total 65".
QString squareNote(const ProgramState& state, int number);

/// The line at the foot of a sheet: its contents, the settings (order, first number, distance, and the
/// difficulty of puzzles), and the date of printing. If `drawsStarts`, the first number is the one from which
/// starting numbers are drawn; otherwise it is that of the state's square.
QString sheetCaption(const ProgramState& state, const QStringList& contents, bool drawsStarts,
                     const QDate& date);

/// How a batch ended of which `done` of `sheets` sheets were printed: "24 sheets sent to" a printer.
QString batchEnding(std::int64_t done, std::int64_t sheets, const PrintOrder& order);

/// Why the state's squares can't be printed, if their starting number or their last number is 1e200 or more
/// in magnitude; one of them must be. Names that number, the starting number if both are, and the limit.
QString outOfRange(const ProgramState& state);

} // namespace quarvelle
