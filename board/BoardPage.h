#pragma once

#include <QWidget>
#include <optional>

#include "board/Place.h"
#include "ui_BoardPage.h"
#include "widgets/DrawingSurface.h"

namespace quarvelle {

/// The practice board: the drawing surface, the mark on the selected cell and the answer box that jumps onto
/// cells. Tells assistive technology what is on it; `AccessibleBoard` answers its questions.
class BoardPage : public DrawingSurface {
    Q_OBJECT

public:
    /// `state` outlives the page.
    explicit BoardPage(const ProgramState& state, QWidget* parent = nullptr);

    EntryBox& answerBox() const { return *m_controls.Text6; }
    const ProgramState& state() const { return m_state; }

    /// A puzzle has been drawn, to be answered; until it ends it is a table of cells and one of them, which
    /// the state says is selected, is marked.
    void beginPuzzle();
    void endPuzzle();
    bool hasPuzzle() const { return m_state.answering == 1; }
    /// Gives the keyboard to the board, which shows by its mark where on it.
    void takeKeyboard();
    /// The selection has moved.
    void markSelectedCell();
    /// What a cell covers, grid lines included, in the drawing's pixels.
    QRect cellArea(Place place) const;
    /// The cell at a pixel of the drawing, if there is one; a grid line belongs to the cell that follows it.
    std::optional<Place> placeAt(QPoint pixel) const;

    /// Sizes the box for a cell, in pixels at 100 %, and lets it take each of `numbers` whole.
    void fitAnswerBox(int cellWidth, const QStringList& numbers, const AnswerBox::Insets& insets);
    /// Empties the box, moves it onto the selected cell and gives it the keyboard.
    void openAnswerBox();
    void closeAnswerBox();

    /// Says `news` to whoever listens with a screen reader: a notification, which is spoken whatever has the
    /// keyboard.
    void announce(const QString& news);
    /// The number in the selected cell has changed.
    void tellCellChanged();

protected:
    void paintAbove(QPainter& painter) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void tellCellsCameOrWent();
    void tellFocus();

    Ui::BoardPage m_controls;
    const ProgramState& m_state;
};

} // namespace quarvelle
