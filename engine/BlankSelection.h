#pragma once

namespace quarvelle {

class EventQueue;
class RandomSource;
struct ProgramState;

/// Turns cells of `puzzle`, a complete square without blanks, into blanks that can be solved one line at a
/// time: up to `blankCount` of them, fewer when no further cell qualifies. Each blank holds the marker of the
/// kind of line through which it is deduced. No blank lies on the root line (`probeKind` through
/// `probeAnchorRow`, `probeAnchorCol`). `placeIndex` ends as the number of blanks plus one, `stopRequested`
/// as
/// 2. With every line option off nothing is blanked, there is no root and `placeIndex` ends as 0.
///
/// Tries random cells, with one yield for each; returns early when `stopRequested` is -1 after a yield. After
/// n*n such attempts without a blank it scans all cells in order, and a scan either places a blank or ends
/// the selection, so the loop is bounded. A scan doesn't yield: at any order it takes a fraction of a
/// millisecond.
///
/// The four property modes must be 0 unless the order is 5, the only one whose shapes have the line's sum.
void selectBlanks(ProgramState& state, RandomSource& random, EventQueue& events);

} // namespace quarvelle
