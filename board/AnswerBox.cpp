#include "board/AnswerBox.h"

#include <QEvent>
#include <QFontMetricsF>
#include <algorithm>

#include "widgets/DrawingSurface.h"
#include "widgets/Fonts.h"
#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"

namespace quarvelle {

AnswerBox::AnswerBox(QWidget* parent) : EntryBox(parent) {
    connect(this, &QLineEdit::textChanged, this, &AnswerBox::alignText);
}

void AnswerBox::setInsets(const Insets& insets) {
    m_insets = insets;
    alignText();
}

void AnswerBox::changeEvent(QEvent* event) {
    EntryBox::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        alignText();
}

void AnswerBox::moveEvent(QMoveEvent* event) {
    EntryBox::moveEvent(event);
    alignText();
}

/// Gives the text the place and the font that the board would draw it with.
void AnswerBox::alignText() {
    const auto* board = qobject_cast<const DrawingSurface*>(parentWidget());
    if (!board)
        return;
    const QRect place = PageScale::placeOf(*this);
    QPoint inset = m_insets.text;
    if (!text().startsWith('-'))
        inset.rx() += m_insets.signRoom;
    // The box is one pixel wider than its cell because it includes the right grid line.
    const double room = place.width() - 2 - inset.x();
    const PixelGrid grid = board->grid();
    const double natural = grid.metrics(boardFont()).horizontalAdvance(text()) / grid.enlargement();
    const double condensed =
        std::min(board->drawing().condensed(TextStyle::number, grid), natural > room ? room / natural : 1);
    const ShownText shown = grid.text(boardFont(), condensed);
    if (font() != shown.font())
        setFont(shown.font());
    // QLineEdit adds insets of its own, and room for the cursor at the end of the text.
    constexpr QPoint ownInsets(2, 1);
    const QPoint corner = shown.corner(place.topLeft() + inset) - pos() - ownInsets;
    setTextMargins(corner.x(), corner.y(), -2 - qRound(PageScale::factorOf(*this)), 0);
}

} // namespace quarvelle
