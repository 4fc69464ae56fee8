#include "ui/BoardPage.h"

#include <QFontMetricsF>

#include "ui/Fonts.h"

namespace quarvelle {

BoardPage::BoardPage(QWidget* parent) : DrawingSurface(parent) {
    m_controls.setupUi(this);
    // A line edit keeps two pixels free at either end; in a cell the digits need them.
    answerBox().setTextMargins(-2, 0, -2, 0);
}

void BoardPage::fitAnswerBox(int cellWidth, const QString& longestText) {
    answerBox().resize(cellWidth + 1, 18);
    answerBox().setTypedLimit(static_cast<int>(longestText.size()));
    constexpr double cursorRoom = 2;
    QFont font = boardFont();
    const double natural = QFontMetricsF(font).horizontalAdvance(longestText);
    const double room = answerBox().width() - cursorRoom;
    if (natural > room)
        font.setStretch(static_cast<int>(100 * room / natural));
    answerBox().setFont(font);
}

void BoardPage::openAnswerBox(int left, int top) {
    answerBox().clear();
    answerBox().move(left, top);
    answerBox().setEnabled(true);
    answerBox().show();
    answerBox().setFocus();
}

void BoardPage::closeAnswerBox() {
    answerBox().setEnabled(false);
    answerBox().hide();
    answerBox().clear();
}

} // namespace quarvelle
