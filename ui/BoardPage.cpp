#include "ui/BoardPage.h"

#include <QPainter>
#include <algorithm>

#include "ui/PageScale.h"
#include "ui/PixelGrid.h"

namespace quarvelle {

BoardPage::BoardPage(QWidget* parent) : DrawingSurface(parent) {
    m_controls.setupUi(this);
}

void BoardPage::fitAnswerBox(int cellWidth, const QStringList& numbers, const AnswerBox::Insets& insets) {
    qsizetype longest = 0;
    for (const QString& number : numbers)
        longest = std::max(longest, number.size());
    answerBox().setTypedLimit(static_cast<int>(longest));
    PageScale::setPlace(answerBox(), {PageScale::placeOf(answerBox()).topLeft(), QSize(cellWidth + 1, 18)});
    m_controls.Text6->setInsets(insets);
}

void BoardPage::openAnswerBox(int left, int top) {
    answerBox().clear();
    PageScale::setPlace(answerBox(), {QPoint(left, top), PageScale::placeOf(answerBox()).size()});
    answerBox().setEnabled(true);
    answerBox().show();
    answerBox().setFocus();
    update();
}

void BoardPage::closeAnswerBox() {
    answerBox().setEnabled(false);
    answerBox().hide();
    answerBox().clear();
    update();
}

void BoardPage::paintAbove(QPainter& painter) {
    if (!answerBox().isVisible())
        return;
    // The cell stays framed by its grid lines.
    const QRect cell = PageScale::placeOf(answerBox()).adjusted(1, 1, -1, 0);
    PixelGrid::painted(painter, 1).fill(painter, cell, answerBox().palette().color(QPalette::Window));
}

} // namespace quarvelle
