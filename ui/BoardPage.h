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

    /// Sizes the box for a cell and lets it take and show each of `numbers` whole: its limit is the longest of
    /// them, its font narrow enough for the widest.
    void fitAnswerBox(int cellWidth, const QStringList& numbers);
    /// Empties the box, moves it to a cell's corner and gives it the keyboard.
    void openAnswerBox(int left, int top);
    void closeAnswerBox();

private:
    Ui::BoardPage m_controls;
};

} // namespace quarvelle
