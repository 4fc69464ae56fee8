#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ui/Drawing.h"

namespace quarvelle::testing {

/// A board found in a drawing: its rectangle without the last grid lines, and the text in each cell that has
/// one, by column and row from 0.
struct PrintedBoard {
    QRect area;
    std::map<std::pair<int, int>, std::string> cells;
    int shaded = 0;
};

/// The boards of a drawing with cells `cellWidth` pixels wide, in the order drawn. Every text that lies in no
/// board goes to `labels`.
struct PrintedBoards {
    PrintedBoards(const Drawing& drawing, int cellWidth);

    std::vector<PrintedBoard> boards;
    std::vector<TextAtPoint> labels;
};

/// Empty if the numbers, by column and row from 0, are those from `s` on in steps of `d`, each once, with one
/// sum in every row, column and diagonal, broken ones included; else what is wrong.
std::string completenessFault(const std::map<std::pair<int, int>, std::string>& cells, int n, double s,
                              double d);

} // namespace quarvelle::testing
