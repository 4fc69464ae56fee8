#pragma once

#include "print/Printer.h"
#include "print/SheetLayout.h"
#include "ui/Drawing.h"

namespace quarvelle {

class DrawingSurface;
class EventQueue;
struct ProgramState;

/// Gathers the squares of a batch on sheets and prints each sheet that is full. A sheet of puzzles is
/// followed by the sheet with their answers where `puzzleMode` asks for both. The surface shows the sheet as
/// it fills.
class Sheets {
public:
    /// The geometry of the state's board is settled; everything outlives the sheets.
    Sheets(ProgramState& state, DrawingSurface& surface, PrintJob& job, EventQueue& events);

    /// Adds the state's square, which is one sheet a piece if it is in pieces. Stops between two pieces when
    /// a stop is requested. Returns why printing failed, or an empty text.
    [[nodiscard]] QString add();
    /// Prints the sheet that isn't full yet, if it holds anything.
    [[nodiscard]] QString printRest();

private:
    void draw();
    QString printSheet();
    QString printView(const Drawing& drawing, const char* name);

    ProgramState& m_state;
    DrawingSurface& m_surface;
    PrintJob& m_job;
    EventQueue& m_events;
    SheetLayout m_layout;
    Drawing m_answers; ///< of the puzzles on the surface
    int m_filled = 0;  ///< squares on the sheet
    int m_sheet = 1;
};

} // namespace quarvelle
