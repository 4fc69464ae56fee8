#include "ui/BoardPage.h"

#include <QFontMetricsF>
#include <algorithm>

#include "ui/Fonts.h"

namespace quarvelle {

BoardPage::BoardPage(QWidget* parent) : DrawingSurface(parent) {
    m_controls.setupUi(this);
    // A line edit keeps two pixels free at either end; in a cell the digits need them.
    answerBox().setTextMargins(-2, 0, -2, 0);
}

void BoardPage::fitAnswerBox(int cellWidth, const QStringList& numbers) {
    QFont font = boardFont();
    const QFontMetricsF metrics(font);
    qsizetype longest = 0;
    double widest = 0;
    for (const QString& number : numbers) {
        longest = std::max(longest, number.size());
        widest = std::max(widest, metrics.horizontalAdvance(number));
    }
    answerBox().resize(cellWidth + 1, 18);
    answerBox().setTypedLimit(static_cast<int>(longest));
    constexpr double cursorRoom = 2;
    const double room = answerBox().width() - cursorRoom;
    if (widest > room)
        font.setStretch(static_cast<int>(100 * room / widest));
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
