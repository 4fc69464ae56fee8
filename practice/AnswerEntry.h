#pragma once

#include <QObject>

#include "practice/CellSelection.h"

namespace quarvelle {

/// Takes the player's answers: a click on a blank opens the answer box there, Enter checks the number typed.
class AnswerEntry : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window.
    explicit AnswerEntry(MainWindow& window);

    /// A mouse button was pressed at (`x`, `y`), in the drawing's pixels. Nothing happens outside the blanks,
    /// nor on the cell whose box is open, so that what was typed there stays.
    void Form_MouseDown(int button, int shift, int x, int y);
    void Text6_KeyDown(int keyCode, int shift);

private:
    bool isRight(double entry) const;
    void takeRightAnswer();
    void takeWrongAnswer(double entry);

    MainWindow& m_window;
    CellSelection m_selection;
};

} // namespace quarvelle
