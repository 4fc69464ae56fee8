#include "widgets/PageScale.h"

#include <QApplication>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionButton>
#include <QtMath>
#include <algorithm>

#include "widgets/Fonts.h"

namespace quarvelle {

namespace {

/// Draws an element of a control in units of whole device pixels, so that its lines are sharp and equally
/// thick on all sides. It draws onto a picture whose pixel ratio is the unit, because styles cache what they
/// draw as pictures for a pixel ratio.
template <class Option, class Draw>
void drawInUnits(const Option& option, QPainter& painter, double factor, const Draw& draw) {
    const double ratio = painter.device()->devicePixelRatio();
    const int unit = std::max(1, qRound(factor * ratio));
    const auto units = [&](int length) { return qFloor(length * ratio / unit + 1e-6); };
    const QSize size(units(option.rect.width()), units(option.rect.height()));
    QPixmap picture(size * unit);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(unit);
    QPainter inUnits(&picture);
    Option atUnits = option;
    atUnits.rect = QRect(QPoint(0, 0), size);
    draw(atUnits, inUnits);
    inUnits.end();
    picture.setDevicePixelRatio(ratio);
    painter.drawPixmap(option.rect.topLeft(), picture);
}

} // namespace

PageScale::PageScale(std::vector<QWidget*> pages, QObject* parent)
    : QProxyStyle("Fusion"), m_pages(std::move(pages)) {
    setParent(parent);
    for (QWidget* page : m_pages) {
        m_pageSizes[page] = page->minimumSize();
        page->setMinimumSize(0, 0);
        page->setStyle(this);
        for (auto* control : page->findChildren<QWidget*>()) {
            m_places[control] = control->geometry();
            control->setStyle(this);
        }
    }
    setFactor(1);
}

void PageScale::setFactor(double factor) {
    m_factor = factor;
    for (QWidget* page : m_pages) {
        page->setFont(enlarged(controlFont(), factor));
        QEvent change(QEvent::StyleChange);
        QApplication::sendEvent(page, &change);
        for (auto* control : page->findChildren<QWidget*>()) {
            if (const auto place = m_places.find(control); place != m_places.end())
                control->setGeometry(shown(place->second));
            QApplication::sendEvent(control, &change);
        }
    }
}

QSize PageScale::sizeOf(const QWidget& page) const {
    // Rounded down: a page that just fits must not be a pixel too large and bring up scroll bars.
    const QSizeF size = QSizeF(m_pageSizes.at(&page)) * m_factor;
    return {qFloor(size.width() + 1e-6), qFloor(size.height() + 1e-6)};
}

QSize PageScale::wholeSize() const {
    QSize whole;
    for (const auto& [page, size] : m_pageSizes)
        whole = whole.expandedTo(size);
    return whole;
}

void PageScale::setPageSize(QWidget& page, QSize size) {
    auto* scale = qobject_cast<PageScale*>(page.style());
    if (scale == nullptr || std::exchange(scale->m_pageSizes[&page], size) == size)
        return;
    emit scale->pageResized();
}

const PageScale* PageScale::of(const QWidget& widget) {
    return qobject_cast<const PageScale*>(widget.style());
}

double PageScale::factorOf(const QWidget& widget) {
    const PageScale* scale = of(widget);
    return scale ? scale->m_factor : 1;
}

QRect PageScale::placeOf(const QWidget& widget) {
    const PageScale* scale = of(widget);
    if (!scale)
        return widget.geometry();
    const auto place = scale->m_places.find(&widget);
    return place == scale->m_places.end() ? widget.geometry() : place->second;
}

void PageScale::setPlace(QWidget& widget, const QRect& place) {
    if (auto* scale = qobject_cast<PageScale*>(widget.style())) {
        scale->m_places[&widget] = place;
        widget.setGeometry(scale->shown(place));
    } else {
        widget.setGeometry(place);
    }
}

/// Rounds edges, not sizes, so that controls that touch at 100 % touch at every factor.
QRect PageScale::shown(const QRect& place) const {
    const QPointF corner = QPointF(place.topLeft()) * m_factor;
    const QPointF end = QPointF(place.left() + place.width(), place.top() + place.height()) * m_factor;
    return {corner.toPoint(), end.toPoint() - QPoint(1, 1)};
}

void PageScale::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto draw = [&](const QStyleOption& atUnits, QPainter& inUnits) {
        const QScopedValueRollback units(m_drawsUnits, true);
        QProxyStyle::drawPrimitive(element, &atUnits, &inUnits, widget);
    };
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == PE_PanelLineEdit && frame && frame->lineWidth > 0 && !m_drawsUnits) {
        QStyleOptionFrame thin = *frame;
        thin.lineWidth = QProxyStyle::pixelMetric(PM_DefaultFrameWidth, option, widget);
        drawInUnits(thin, *painter, m_factor, draw);
    } else if (element == PE_IndicatorCheckBox && button && !m_drawsUnits) {
        drawInUnits(*button, *painter, m_factor, draw);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void PageScale::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element != CE_PushButton || !button || m_drawsUnits) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    drawInUnits(*button, *painter, m_factor, [&](const QStyleOption& atUnits, QPainter& inUnits) {
        const QScopedValueRollback units(m_drawsUnits, true);
        QProxyStyle::drawControl(element, &atUnits, &inUnits, widget);
    });
}

int PageScale::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int units = QProxyStyle::pixelMetric(metric, option, widget);
    return m_drawsUnits ? units : qRound(units * m_factor);
}

} // namespace quarvelle
