#pragma once

#include <QObject>
#include <vector>

#include "practice/CellSelection.h"

namespace quarvelle {

/// "Show a Line": helps a person who is stuck to the next blank that can be found, by the line that gives it.
/// Never tells the number.
class ShowLine : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window.
    explicit ShowLine(MainWindow& window);

    /// Shades a line of those in play on which the marked blank is the only one, and names it; if there is
    /// none, the mark first moves to the next blank that has one. Again, it adds the sum of the line; once
    /// more, it goes on to the next such line through the same blank, and so on round. Does nothing while
    /// there is no puzzle to be answered.
    void showline_Click();

private:
    void goToGivenBlank();
    void tell() const;
    QString shownSum(const QString& name, const std::vector<Place>& line) const;

    MainWindow& m_window;
    CellSelection m_selection;
    // Of the line that is shaded:
    int m_kind = 0;
    bool m_hasSum = false; ///< the sum has been told
};

} // namespace quarvelle
