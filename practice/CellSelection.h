#pragma once

#include "board/Place.h"

namespace quarvelle {

class MainWindow;

/// A way across the board and down it, in cells.
struct Way {
    int across = 0;
    int down = 0;
};

/// The selected cell of the puzzle on the board, which clicks and keys share, and the answer box on it. What
/// is selected stands in the window's state; every object of this class sees and moves the same selection.
class CellSelection {
public:
    /// `window` outlives the object.
    explicit CellSelection(MainWindow& window) : m_window(window) {}

    /// Whether a puzzle is on the board to be answered: not while it is being made, nor once play has
    /// stopped.
    bool mayAnswer() const;
    bool isBlank(Place place) const;
    Place place() const;

    /// The cell that lies `way` on, around the edges; `way` is at most the order.
    Place neighbour(Place from, Way way) const;
    /// The first blank from a cell on in steps of `way`, around the edges; the cell itself where there is no
    /// other.
    Place blankTowards(Place from, Way way) const;
    /// The blank that comes next as the screen is read, around the ends, or with `step` -1 the one before;
    /// the cell itself where there is no other.
    Place blankInReadingOrder(Place from, int step) const;
    Place firstBlank() const;
    Place lastBlank() const;

    /// For a board that has just been drawn: selects the first blank and gives the keyboard to the board.
    void start();
    /// Selects a cell of the square, marks it and scrolls there.
    void moveTo(Place place);
    /// Opens the answer box, empty, on the selected cell, which is blank.
    void openBox();
    /// Closes the answer box with whatever was typed into it; the board has the keyboard then.
    void leaveBox();

private:
    MainWindow& m_window;
};

} // namespace quarvelle
