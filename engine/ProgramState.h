#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quarvelle {

/// The largest order that the grids have room for.
inline constexpr int maxOrder = 103;
/// The largest order that a batch may have.
inline constexpr int maxBatchOrder = 101;
/// A cell whose value is at least this is empty: not yet filled, or a blank of a puzzle.
inline constexpr double emptyMarker = 1e200;
/// Line kinds are numbered from 1 to this.
inline constexpr int lineKindCount = 24;

/// Numbers indexed by (row, column), both from 1; index 0 is never used.
using Grid = std::array<std::array<double, maxOrder + 1>, maxOrder + 1>;

/// The meanings of `stopRequested`.
namespace Request {
inline constexpr int none = 0;
inline constexpr int playing = 2;
inline constexpr int stop = -1;
inline constexpr int abandon = -7;
} // namespace Request

namespace Difficulty {
inline constexpr int easy = 1;
inline constexpr int challenging = 3;
} // namespace Difficulty

/// What a printed batch holds, the values of `puzzleMode`.
namespace PuzzleMode {
inline constexpr int answers = 0;
inline constexpr int puzzles = 1;
inline constexpr int both = 2;
} // namespace PuzzleMode

/// The values of a 5 by 5 property's mode field.
namespace PropertyMode {
inline constexpr int none = 0;
inline constexpr int onlyMain = 1;
inline constexpr int all = 2;
} // namespace PropertyMode

/// The values of `currentPage`.
namespace Page {
inline constexpr int main = 0;
inline constexpr int board = 1;
inline constexpr int information = 2;
inline constexpr int properties = 3;
} // namespace Page

/// Everything that the program's parts share. The window owns the one record and lends it by reference; the
/// engine's procedures take their operands from it and leave their results in it. A fresh record holds the
/// start-up values.
///
/// A value has a field here if a handler reads it, if two procedures exchange it through the record, or if it
/// is a result that others read. What only one procedure needs is a local of that procedure.
struct ProgramState {
    // Settings.
    std::int16_t squareSize = 5;        ///< n, a prime of at least 5
    double startNumber = 1;             ///< s, the first number
    double distance = 1;                ///< d, between consecutive numbers
    double blankCount = 100;            ///< blanks asked for, at least 1
    double printCount = 20;             ///< squares of a batch
    std::optional<double> randomStarts; ///< how many starting numbers to draw from, if they are drawn
    int difficulty = Difficulty::challenging;
    int puzzleMode = PuzzleMode::both;
    int highlightAnswers = 1;
    int mainDiagonalsAndLines = 1; ///< rows, columns and the two main diagonals may carry blanks
    int allDiagonals = 0;          ///< every broken diagonal may carry blanks
    int crossDiagonalMode = PropertyMode::none;
    int crossLineMode = PropertyMode::none;
    int scatteredCrossDiagonalMode = PropertyMode::none;
    int scatteredCrossLineMode = PropertyMode::none;

    // The settings' readouts and the size box.
    std::string magicTotalText;
    double sizeEntry = 0;       ///< the number in the size box; while an arrow key steps it, the one tried
    double factorialSquare = 0; ///< ((n - 1)!) squared

    // The square.
    Grid square{};                          ///< the complete square
    Grid puzzle{};                          ///< the square as the player sees it
    std::array<int, 1001> placedRow{};      ///< row of the k-th axis cell, k from 1 to 2n
    std::array<int, 1001> placedColumn{};   ///< its column
    std::array<double, 1001> placedValue{}; ///< its relative value

    // The run.
    int stopRequested = Request::none;
    int practising = 0;
    int answering = 0; ///< 1 while a puzzle is there to be answered
    int showAnswers = 0;
    int currentPage = Page::main;
    int savedPuzzleMode = PuzzleMode::answers; ///< `puzzleMode` before a practice run
    double baseStart = 0;                      ///< the starting number as typed
    int remainingBlanks = 0;                   ///< open blanks plus one
    int squaresSolved = 0;
    int numbersCorrect = 0;
    int numbersIncorrect = 0;

    // The board, in pixels unless said.
    int digitWidth = 0;         ///< characters that a cell has room for
    std::int16_t maxDigits = 0; ///< characters of the longer text of the first and the last number
    double cellWidth = 24;
    int visibleColumns = 0; ///< cells drawn across
    int visibleRows = 0;    ///< cells drawn down
    int boardLeft = 8;
    int boardTop = 8;
    int boardWidthLimit = 753;
    int boardHeightLimit = 530;
    int pageColumn = 1; ///< which piece across of a square larger than the board, from 1
    int pageRow = 1;    ///< which piece down
    int selectedRow = 0;
    int selectedColumn = 0;
    int selectedCellX = 0;
    int selectedCellY = 0;

    // Working fields of construction and blank selection.
    int curRow = 0, curCol = 0;       ///< the cursor
    int anchorRow = 0, anchorCol = 0; ///< the origin, or the candidate for a blank
    int firstDirection = 0;           ///< code 1 to 4 of the first axis's knight step
    int stepDirection = 0;            ///< the same of the latest axis
    int placeIndex = 0;               ///< blanks placed plus one
    std::array<int, lineKindCount + 1> lineUsable{};
    std::array<int, lineKindCount + 1> lineBlankCount{};
    std::array<int, lineKindCount + 1> lineRejected{};
    int bestBlankCount = 0;
    int attemptCount = 0;
    int lineKind = 0;
    int blankAccepted = 0;
    int blankPlaced = 0;
    int stepIndex = 0;
    int probeKind = 0; ///< kind of the root line
    int probeAnchorRow = 0, probeAnchorCol = 0;
    int probeRow = 0, probeCol = 0;
};

} // namespace quarvelle
