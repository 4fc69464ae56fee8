#include "ui/BoardPage.h"

#include <QFontMetricsF>
#include <algorithm>

#include "ui/Fonts.h"

namespace quarvelle {

BoardPage::BoardPage(QWidget* parent) : DrawingSurface(parent) {
    m_controls.setupUi(this);
    // The digits typed stand where the cell's number will: two pixels in, as a line edit has them anyway, and
    // a pixel lower than its middle. At their end only the cursor needs room.
    answerBox().setTextMargins(0, 1, -2, 0);
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
    constexpr double startAndCursor = 3;
    const double room = answerBox().width() - startAndCursor;
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
