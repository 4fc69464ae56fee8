#pragma once

#include <QObject>
#include <optional>

#include "practice/CellSelection.h"

class QKeyEvent;

namespace quarvelle {

class AnswerEntry;

/// What the keys do in practice. Q stops, whatever has the keyboard. On the board, Tab and Shift+Tab go from
/// blank to blank as the screen is read, arrow keys from cell to cell, with Ctrl to the next blank that way,
/// Home and End to the first and the last blank; Enter, Space, F2 or the first character of a number open the
/// answer box on a blank. In the box, Enter answers, Tab, Shift+Tab, Up and Down go on to another blank, Left
/// and Right past the ends of the text, and Escape goes back to the board; all other keys are the box's own.
/// The keys of menu items stand with the items in the window's form.
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
