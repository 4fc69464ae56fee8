#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "board/Place.h"
#include "ui_BoardPage.h"
#include "widgets/DrawingSurface.h"

namespace quarvelle {

/// The page with the board: the drawing, the mark on the selected cell, and the answer box, which is moved to
/// the cell to be answered. It reports changes to assistive technology, whose questions `AccessibleBoard`
/// answers.
class BoardPage : public DrawingSurface {
    Q_OBJECT

public:
    /// `state` outlives the page.
    explicit BoardPage(const ProgramState& state, QWidget* parent = nullptr);

    EntryBox& answerBox() const { return *m_controls.Text6; }
    const ProgramState& state() const { return m_state; }

    /// A puzzle to be answered has been drawn. While the state says that it can be, the board is a table of
    /// cells for assistive technology, and the cell that the state says is selected is marked.
    void beginPuzzle();
    /// To be called when the state says that the puzzle can't be answered any more.
    void endPuzzle();
    bool hasPuzzle() const { return m_state.answering == 1; }
    /// To be called when another cell has been selected: marks that one.
    void markSelectedCell();
    /// Makes the page as large as what will be drawn, from the top-left corner of the drawing to the lower
    /// right one of `content`, and the margin around it.
    void makeRoomFor(const QRect& content);
    /// Shades the cells of a line, on which the selected blank is the only one, until another cell is marked,
    /// or `clearLine`.
    void shadeLine(std::vector<Place> line);
    void clearLine();
    bool hasShadedLine() const { return !m_line.empty(); }
    bool isOnShadedLine(Place place) const;

    /// The rectangle of a cell, grid lines included, in the drawing's pixels.
    QRect cellArea(Place place) const;
    /// The cell at a pixel of the drawing, if there is one. A grid line belongs to the cell to its right or
    /// below it.
    std::optional<Place> placeAt(QPoint pixel) const;

    /// Gives the answer box the size of a cell, in pixels at 100 %, and lets it take as many characters as
    /// the longest of `numbers` has.
    void fitAnswerBox(int cellWidth, const QStringList& numbers, const AnswerBox::Insets& insets);
    /// Empties the box, moves it onto the selected cell and gives it the keyboard.
    void openAnswerBox();
    void closeAnswerBox();

    /// Has a screen reader say `news`. It is sent as a notification, which is spoken whatever control has the
    /// keyboard.
    void announce(const QString& news);
    /// To be called when the number in the selected cell has changed: tells assistive technology.
    void tellCellChanged();

signals:
    /// Assistive technology asks that a cell of the puzzle gets the keyboard.
    void keyboardAsked(Place place);

protected:
    void paintAbove(QPainter& painter) override;
    void focusInEvent(QFocusEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

private:
    void tellCellsCameOrWent();
    void tellFocus();

    void paintLine(QPainter& painter, const PixelGrid& grid) const;
    QRect insideOf(Place place, const PixelGrid& grid) const;

    Ui::BoardPage m_controls;
    const ProgramState& m_state;
    std::vector<Place> m_line; ///< shaded
};

} // namespace quarvelle
