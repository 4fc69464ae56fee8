#pragma once

namespace quarvelle {

struct ProgramState;

/// Decides whether the candidate (`anchorRow`, `anchorCol`) may become a blank that is deduced through its
/// line of `lineKind`, and sets `blankAccepted` to 1 or 0; nothing else is written. The blanks of `puzzle`,
/// each with the marker of a kind, may lie anywhere; the candidate may be one of them, and then its own
/// marker is ignored. `squareSize` is at most 103. Where all blanks are placed by the same code, `LineLedger`
/// gives the same answer in less time.
///
/// A blank needs every other blank on its line. Blanks can be solved one at a time exactly when this relation
/// has no cycle; those there are have none, so a new one can only close a cycle through itself, which is
/// found by following the relation from the candidate.
void makeblanks(ProgramState& state);

} // namespace quarvelle
