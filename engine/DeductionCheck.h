#pragma once

namespace quarvelle {

struct ProgramState;

/// Decides whether the candidate (`anchorRow`, `anchorCol`) may become a blank that is found through the line
/// of `lineKind` through it, and answers in `blankAccepted` (1 or 0). `puzzle` is only read; the anchor is
/// the candidate again afterwards, `lineKind` and the cursor are not. `squareSize` is at most 103.
///
/// A blank needs every other blank on its line. A set of blanks can be solved one at a time exactly when this
/// relation has no cycle; the blanks there are have none, so a new one can only close a cycle through itself,
/// and following the relation outwards from the candidate finds it.
void makeblanks(ProgramState& state);

} // namespace quarvelle
