#pragma once

#include "ui/DrawingSurface.h"
#include "ui_BoardPage.h"

namespace quarvelle {

/// The practice board: the drawing surface and the answer box that jumps onto its cells.
class BoardPage : public DrawingSurface {
    Q_OBJECT

public:
    explicit BoardPage(QWidget* parent = nullptr);

    EntryBox& answerBox() const { return *m_controls.Text6; }

    /// Sizes the box for a cell and lets it take `longestText` whole: its limit, and a font narrow enough.
    void fitAnswerBox(int cellWidth, const QString& longestText);
    /// Empties the box, moves it to a cell's corner and gives it the keyboard.
    void openAnswerBox(int left, int top);
    void closeAnswerBox();

private:
    Ui::BoardPage m_controls;
};

} // namespace quarvelle
