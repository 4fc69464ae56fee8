#pragma once

namespace quarvelle {

struct ProgramState;

/// Decides whether the candidate (`anchorRow`, `anchorCol`) may become a blank that is found through the line
/// of `lineKind` through it, and answers in `blankAccepted` (1 or 0). Every blank of `puzzle` holds the
/// marker of a kind, in any arrangement; the candidate may be one of them, its marker doesn't count. Nothing
/// else is written. `squareSize` is at most 103. `LineLedger` gives the same answer, in less time, to whoever
/// places all blanks.
///
/// A blank needs every other blank on its line. A set of blanks can be solved one at a time exactly when this
/// relation has no cycle; the blanks there are have none, so a new one can only close a cycle through itself,
/// and following the relation outwards from the candidate finds it.
void makeblanks(ProgramState& state);

} // namespace quarvelle
