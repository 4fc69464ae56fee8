#pragma once

namespace quarvelle {

/// How the squares of a batch are shared out among sheets of paper. A bundle is what is made in one go: the
/// squares that share a sheet and the sheet of their answers, or all the pieces of one square and theirs.
/// Bundles, squares and sheets count from 1.
class SheetPlan {
public:
    /// Spreads the squares over as few bundles of at most `fitting` as they need, so evenly that two bundles
    /// differ by one square at most. All numbers are positive, and so few that an `int` counts the sheets.
    SheetPlan(int squares, int fitting, int sheetsOfBundle);

    int sheets() const { return sheetsOf(m_bundles); }
    /// How many squares the fullest bundle has.
    int mostSquares() const { return squaresOf(1); }

    int squaresOf(int bundle) const { return m_fewest + (bundle <= m_fuller ? 1 : 0); }
    int firstSquareOf(int bundle) const;
    int firstSheetOf(int bundle) const { return sheetsOf(bundle - 1) + 1; }
    int bundleOf(int sheet) const { return (sheet - 1) / m_sheetsOfBundle + 1; }

private:
    int sheetsOf(int bundles) const { return bundles * m_sheetsOfBundle; }

    int m_bundles;
    int m_fewest; ///< squares of a bundle that is not one of the fuller ones
    int m_fuller; ///< so many bundles at the beginning have one square more
    int m_sheetsOfBundle;
};

} // namespace quarvelle
