#include "widgets/CaptionWidgets.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "widgets/Contrast.h"
#include "widgets/Fonts.h"
#include "widgets/PageScale.h"

namespace quarvelle {

namespace {

/// The area of a control at 100 %, from its own corner.
QRectF insideOf(const QWidget& widget, const QMarginsF& insets) {
    return QRectF(QPointF(0, 0), PageScale::placeOf(widget).size()).marginsRemoved(insets);
}

/// A dotted line along a control's edge, in whole device pixels and as thick as the frames of other controls.
void drawFocusLine(QPainter& painter, const QWidget& widget) {
    const QTransform toDevice = painter.deviceTransform();
    const QRect edge = toDevice.mapRect(QRectF(widget.rect())).toRect();
    const int thickness = std::max(1, qRound(PageScale::factorOf(widget) * toDevice.m11()));
    QPen pen(widget.palette().color(QPalette::WindowText), thickness, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({1, 1});
    painter.setPen(pen);
    painter.setWorldTransform(toDevice.inverted(), true);
    const double half = thickness / 2.0;
    painter.drawRect(QRectF(edge).adjusted(half, half, -half, -half));
}

/// The color of a control's text on its own ground, or on the page's if it has none.
QColor textColor(const QWidget& widget) {
    return legible(widget.palette().color(QPalette::WindowText), widget.palette().color(QPalette::Window));
}

} // namespace

QRectF CaptionLabel::captionBox() const {
    return insideOf(*this, {2, 0, 1, 0});
}

CaptionLayout CaptionLabel::captionLayout() const {
    return {text(), controlFont(), captionBox().size(), wordWrap()};
}

void CaptionLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(textColor(*this));
    captionLayout().draw(painter, captionBox(), alignment(), PageScale::factorOf(*this));
}

QRectF CaptionCheckBox::captionBox() const {
    constexpr double indicator = 18;
    // The focus line runs along the edge.
    return insideOf(*this, {indicator, 0, 1, 1});
}

CaptionLayout CaptionCheckBox::captionLayout() const {
    return {text(), controlFont(), captionBox().size(), true};
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
    option.rect.translate(qRound(PageScale::factorOf(*this)), 0); // off the focus line
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, option);
    painter.setPen(textColor(*this));
    captionLayout().draw(painter, captionBox(), Qt::AlignLeft | Qt::AlignVCenter, PageScale::factorOf(*this));
    if (hasFocus())
        drawFocusLine(painter, *this);
}

CaptionButton::CaptionButton(QWidget* parent) : QPushButton(parent) {
    // Enter presses the button that has the focus, as Space does.
    setAutoDefault(true);
}

QRectF CaptionButton::captionBox() const {
    return insideOf(*this, {5, 3, 5, 3});
}

CaptionLayout CaptionButton::captionLayout() const {
    return {text(), controlFont(), captionBox().size(), true};
}

void CaptionButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter.setPen(palette().color(group, QPalette::ButtonText));
    captionLayout().draw(painter, captionBox(), Qt::AlignCenter, PageScale::factorOf(*this));
}

} // namespace quarvelle
