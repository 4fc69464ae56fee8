#pragma once

namespace quarvelle {

/// How the squares of a batch are distributed over sheets of paper. A bundle is a group of sheets made
/// together: a sheet of one or more squares and the sheet of their answers, or all pieces of one square and
/// of its answers. Bundles, squares and sheets count from 1.
class SheetPlan {
public:
    /// Distributes `squares` over as few bundles as possible, each of at most `fitting` squares and of
    /// `sheetsOfBundle` sheets. Two bundles differ by at most one square. All numbers are positive, and small
    /// enough for the number of sheets to be an `int`.
    SheetPlan(int squares, int fitting, int sheetsOfBundle);

    int sheets() const { return sheetsOf(m_bundles); }
    /// The number of squares in the fullest bundle.
    int mostSquares() const { return squaresOf(1); }

    int squaresOf(int bundle) const { return m_fewest + (bundle <= m_fuller ? 1 : 0); }
    int firstSquareOf(int bundle) const;
    int firstSheetOf(int bundle) const { return sheetsOf(bundle - 1) + 1; }
    int bundleOf(int sheet) const { return (sheet - 1) / m_sheetsOfBundle + 1; }

private:
    int sheetsOf(int bundles) const { return bundles * m_sheetsOfBundle; }

    int m_bundles;
    int m_fewest; ///< squares of a bundle
    int m_fuller; ///< how many bundles, the first ones, have one square more
    int m_sheetsOfBundle;
};

} // namespace quarvelle
