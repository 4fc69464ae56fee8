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

    /// Sizes the box for a cell, in pixels at 100 %, and lets it take each of `numbers` whole.
    void fitAnswerBox(int cellWidth, const QStringList& numbers, const AnswerBox::Insets& insets);
    /// Empties the box, moves it to a cell's corner and gives it the keyboard.
    void openAnswerBox(int left, int top);
    void closeAnswerBox();

protected:
    void paintAbove(QPainter& painter) override;

private:
    Ui::BoardPage m_controls;
};

} // namespace quarvelle
