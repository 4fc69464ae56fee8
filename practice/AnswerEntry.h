#pragma once

#include <QObject>

#include "practice/CellSelection.h"

namespace quarvelle {

/// Takes the player's answers: a click on a blank opens the answer box on it, Enter checks the number typed.
class AnswerEntry : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window.
    explicit AnswerEntry(MainWindow& window);

    /// A mouse button was pressed at (`x`, `y`) of the drawing surface. A press outside the board selects
    /// nothing; a press on the open box's own cell keeps what was typed.
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
