#pragma once

#include "board/Place.h"

namespace quarvelle {

class MainWindow;

/// A move on the board, in cells to the right and down.
struct Way {
    int across = 0;
    int down = 0;
};

/// The selected cell of the puzzle on the board, and the answer box on it. The selection is kept in the
/// window's state, so all objects of this class share it.
class CellSelection {
public:
    /// `window` outlives the object.
    explicit CellSelection(MainWindow& window) : m_window(window) {}

    /// Whether the puzzle on the board can be answered: not while it is being made, nor after a stop.
    bool mayAnswer() const;
    bool isBlank(Place place) const;
    Place place() const;

    /// The cell reached from `from` by `way`, around the edges; each part of `way` is at most the order.
    Place neighbour(Place from, Way way) const;
    /// The first blank after `from` in steps of `way`, around the edges; `from` itself if there is no other.
    Place blankTowards(Place from, Way way) const;
    /// The next blank in reading order, from the last on to the first, or with `step` -1 the one before;
    /// `from` itself if there is no other.
    Place blankInReadingOrder(Place from, int step) const;
    Place firstBlank() const;
    Place lastBlank() const;

    /// For a puzzle that has just been drawn: selects the first blank and gives the keyboard to the board.
    void start();
    /// Selects a cell of the square, marks it and scrolls there.
    void moveTo(Place place);
    /// Opens the empty answer box on the selected cell, which must be a blank, and scrolls there.
    void openBox();
    /// Closes the answer box, drops what was typed into it and gives the keyboard to the board.
    void leaveBox();

private:
    void showPlace() const;

    MainWindow& m_window;
};

} // namespace quarvelle
