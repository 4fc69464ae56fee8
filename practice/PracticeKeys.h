#pragma once

#include <QObject>
#include <optional>

#include "practice/CellSelection.h"

class QKeyEvent;

namespace quarvelle {

class AnswerEntry;

/// What the keys do in practice. Q stops, whatever control has the keyboard.
///
/// On the board, Tab and Shift+Tab go to the next and the previous blank in reading order. Arrow keys go from
/// cell to cell, with Ctrl to the next blank in their direction. Home and End go to the first and the last
/// blank. Enter, Space, F2 or the first character of a number open the answer box if the cell is a blank.
///
/// In the box, Enter answers and Escape goes back to the board. Tab, Shift+Tab, Up and Down go to another
/// blank, and so do Left and Right at the ends of the text. All other keys go to the box.
///
/// The keys of menu items are set in MainWindow.ui.
class PracticeKeys : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window.
    PracticeKeys(MainWindow& window, AnswerEntry& answers);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool boardKey(const QKeyEvent& key);
    bool boxKey(const QKeyEvent& key);
    std::optional<Place> destination(const QKeyEvent& key, bool onlyBlanks) const;
    void goTo(Place place);

    MainWindow& m_window;
    AnswerEntry& m_answers;
    CellSelection m_selection;
};

} // namespace quarvelle
