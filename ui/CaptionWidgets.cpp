#include "ui/CaptionWidgets.h"

#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace quarvelle {

QRectF CaptionLabel::captionBox() const {
    return QRectF(rect()).adjusted(2, 0, -1, 0);
}

CaptionLayout CaptionLabel::captionLayout() const {
    return {text(), font(), captionBox().size(), wordWrap()};
}

void CaptionLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    captionLayout().draw(painter, captionBox(), alignment());
}

QRectF CaptionCheckBox::captionBox() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect indicator = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    // The focus line runs along the edge.
    return QRectF(rect()).adjusted(indicator.right() + 5, 1, -1, 0);
}

CaptionLayout CaptionCheckBox::captionLayout() const {
    return {text(), font(), captionBox().size(), true};
}

bool CaptionCheckBox::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void CaptionCheckBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.rect = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, option);
    painter.setPen(palette().color(QPalette::WindowText));
    captionLayout().draw(painter, captionBox(), Qt::AlignLeft | Qt::AlignVCenter);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

CaptionButton::CaptionButton(QWidget* parent) : QPushButton(parent) {
    // Enter presses the button that has the focus, as Space does.
    setAutoDefault(true);
}

QRectF CaptionButton::captionBox() const {
    return QRectF(rect()).adjusted(5, 3, -5, -3);
}

CaptionLayout CaptionButton::captionLayout() const {
    return {text(), font(), captionBox().size(), true};
}

void CaptionButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter.setPen(palette().color(group, QPalette::ButtonText));
    captionLayout().draw(painter, captionBox(), Qt::AlignCenter);
}

} // namespace quarvelle
