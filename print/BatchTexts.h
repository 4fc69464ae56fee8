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

/// The line in a sheet's margin: its contents, and the settings that make it findable again: order, first
/// number, distance, the difficulty of puzzles, and the date of printing. Where starting numbers are drawn,
/// the first number is the one that they are drawn from; else it is that of the state's square.
QString sheetCaption(const ProgramState& state, const QStringList& contents, bool drawsStarts,
                     const QDate& date);

/// How a batch ended of which `done` sheets out of `sheets` were printed: "24 sheets sent to" a printer.
QString batchEnding(std::int64_t done, std::int64_t sheets, const PrintOrder& order);

} // namespace quarvelle
