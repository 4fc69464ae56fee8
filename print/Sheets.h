#pragma once

#include <cstdint>
#include <vector>

#include "board/Pieces.h"
#include "print/Printer.h"
#include "print/SheetLayout.h"
#include "print/SheetPlan.h"
#include "widgets/Drawing.h"

namespace quarvelle {

class EventQueue;
class MainWindow;
struct ProgramState;

/// Draws the squares of a batch onto sheets, and prints each sheet when it is full, if the order asks for it.
/// A sheet of puzzles is followed by the sheet of their answers if `puzzleMode` asks for both. The board page
/// shows the sheet as it fills, until the next one begins; the foot line shows how many are done.
class Sheets {
public:
    /// The state's board must have been measured; everything passed outlives the sheets.
    Sheets(MainWindow& window, const SheetPlan& plan, const PrintOrder& order, EventQueue& events);
    ~Sheets();

    /// The plan for the batch that the state asks for.
    static SheetPlan planFor(const ProgramState& state);

    /// Whether every square that the order asks for was added.
    bool isComplete() const { return m_bundlesLeft == 0; }
    /// Adds the state's square as the next one; a square in pieces takes one sheet for each. Stops between
    /// two sheets when a stop is requested. Returns why printing failed, or an empty text.
    [[nodiscard]] QString add();
    /// Prints the further copies of a collated order, all sheets again for each. Stops and returns like
    /// `add`.
    [[nodiscard]] QString printCopies();

    /// How many sheets the order asks for, and how many of them have been printed; each copy counts.
    std::int64_t ordered() const;
    std::int64_t printed() const { return m_printed; }

private:
    struct KeptSheet {
        Drawing drawing;
        QString caption;
    };

    QString addPieces(const QString& note);
    int inOrder(int turn, int turns) const;
    void clear();
    /// Draws a piece of the state's square, and of its answers if they have sheets of their own.
    void draw(QPoint corner, const Piece& piece);
    void writeNote(QPoint corner, const QString& note);
    void writeLabel(QPoint corner, Place piece);
    /// The board page, and the sheet of answers if there is one.
    std::vector<Canvas*> canvases();
    /// Prints the sheets just drawn, number `sheet` and the one of its answers, as far as the order asks for
    /// them. `note` goes into their captions.
    QString printSheets(int sheet, const QString& note = {});
    QString print(const Drawing& drawing, const QString& caption, int times);
    bool isStopped();

    MainWindow& m_window;
    const ProgramState& m_state;
    Pieces m_pieces;
    const SheetPlan& m_plan;
    const PrintOrder& m_order;
    EventQueue& m_events;
    SheetLayout m_layout;
    int m_first; ///< the first sheet that the order asks for
    int m_last;
    int m_bundle;
    int m_bundlesLeft;
    int m_placed = 0;              ///< squares of the bundle drawn so far
    Drawing m_answers;             ///< to the puzzles on the board page
    std::vector<KeptSheet> m_kept; ///< for further copies
    std::int64_t m_printed = 0;
};

} // namespace quarvelle
