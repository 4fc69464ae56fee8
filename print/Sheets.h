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

/// Gathers the squares of a batch on sheets and prints each sheet that is full, if the order asks for it. A
/// sheet of puzzles is followed by the sheet with their answers where `puzzleMode` asks for both. The drawing
/// surface shows the sheet as it fills, and then until the next one begins; the window's foot tells how many
/// are done.
class Sheets {
public:
    /// The geometry of the state's board has been measured; everything outlives the sheets.
    Sheets(MainWindow& window, const SheetPlan& plan, const PrintOrder& order, EventQueue& events);
    ~Sheets();

    /// How the state's squares are shared out.
    static SheetPlan planFor(const ProgramState& state);

    /// Whether every square that the order asks for was added.
    bool isComplete() const { return m_bundlesLeft == 0; }
    /// Adds the state's square, the next one asked for; one that is in pieces is one sheet a piece. Stops
    /// between two sheets when a stop is requested. Returns why printing failed, or an empty text.
    [[nodiscard]] QString add();
    /// Prints the copies that come after all sheets. Stops and returns like `add`.
    [[nodiscard]] QString printCopies();

    /// How many sheets the order asks for and how many of them were printed, every copy counted.
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
    /// Draws cells of the state's square, and of its answers where they have sheets of their own.
    void draw(QPoint corner, const Piece& piece);
    void writeNote(QPoint corner, const QString& note);
    void writeLabel(QPoint corner, Place piece);
    /// What is drawn on.
    std::vector<Canvas*> canvases();
    /// Prints what was drawn, `sheet` and its answers, as far as they are asked for. A note goes into their
    /// captions.
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
    int m_first; ///< sheet asked for
    int m_last;
    int m_bundle;
    int m_bundlesLeft;
    int m_placed = 0;              ///< squares of the bundle
    Drawing m_answers;             ///< of the puzzles on the surface
    std::vector<KeptSheet> m_kept; ///< for the copies after all sheets
    std::int64_t m_printed = 0;
};

} // namespace quarvelle
