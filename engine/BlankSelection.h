#pragma once

namespace quarvelle {

class EventQueue;
class RandomSource;
struct ProgramState;

/// Turns cells of `puzzle`, a complete square without blanks, into blanks that can be solved one line at a
/// time: up to `blankCount` of them, fewer when no further cell qualifies. Each blank holds the marker of the
/// line kind it is deduced through. No blank lies on the root line (`probeKind` through `probeAnchorRow`,
/// `probeAnchorCol`). `placeIndex` ends as the number of blanks plus one, `stopRequested` as 2.
///
/// Yields once per random attempt; returns early when `stopRequested` is -1 after a yield. At most n*n
/// attempts go by between two systematic scans, and a scan places a blank or ends the selection, so the loop
/// is bounded. A scan has no turn of its own: four questions a cell, each of four looks, make a fraction of a
/// millisecond at any order. With every line option off nothing is blanked, there is no root and
/// `placeIndex` ends as 0.
///
/// The four property modes must be 0 unless the order is 5, the only one whose shapes have the line's sum.
void selectBlanks(ProgramState& state, RandomSource& random, EventQueue& events);

} // namespace quarvelle
