#pragma once

#include "engine/Cells.h"

namespace quarvelle {

class MainWindow;

/// The selected cell of the puzzle on the board, which clicks and keys share, and the answer box on it. What
/// is selected stands in the window's state; every object of this class sees and moves the same selection.
class CellSelection {
public:
    /// `window` outlives the object.
    explicit CellSelection(MainWindow& window) : m_window(window) {}

    /// Whether a puzzle is on the board to be answered: not while it is being made, nor once play has
    /// stopped.
    bool mayAnswer() const;
    bool isBlank(Cell cell) const;
    Cell cell() const;

    /// A cell on, around the edges; `step` is at most the order.
    Cell neighbour(Cell from, Step step) const;
    /// The first blank from a cell on in steps of `step`, around the edges; the cell itself where there is
    /// no other.
    Cell blankTowards(Cell from, Step step) const;
    /// The blank that comes next as the screen is read, around the ends, or with `step` -1 the one before;
    /// the cell itself where there is no other.
    Cell blankInReadingOrder(Cell from, int step) const;
    Cell firstBlank() const;
    Cell lastBlank() const;

    /// For a board that has just been drawn: selects the first blank and gives the keyboard to the board.
    void start();
    /// Selects a cell from (1, 1) to (n, n), marks it and scrolls there.
    void moveTo(Cell cell);
    /// Opens the answer box, empty, on the selected cell, which is blank.
    void openBox();
    /// Closes the answer box with whatever was typed into it; the board has the keyboard then.
    void leaveBox();

private:
    MainWindow& m_window;
};

} // namespace quarvelle
