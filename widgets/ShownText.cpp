#include "widgets/ShownText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>
#include <algorithm>

#include "widgets/Fonts.h"

namespace quarvelle {

ShownText ShownText::onScreen(const QFont& font, double condensed, double factor) {
    ShownText text;
    text.m_factor = factor;
    text.m_font = enlarged(font, factor);
    text.m_ascentAt100 = QFontMetricsF(font).ascent();
    text.m_ascent = QFontMetricsF(text.m_font).ascent();
    text.m_onPixels = true;
    if (condensed < 1)
        text.m_font.setStretch(std::max(1, qFloor(100 * condensed + 1e-6)));
    return text;
}

ShownText ShownText::onPaper(const QFont& font, double condensed, double ascent) {
    ShownText text;
    text.m_font = font;
    text.m_ascentAt100 = text.m_ascent = ascent;
    text.m_condensed = condensed;
    return text;
}

QPointF ShownText::baseline(const QPoint& point) const {
    const QPointF shown = QPointF(point.x(), point.y() + m_ascentAt100) * m_factor;
    if (!m_onPixels)
        return shown;
    return {static_cast<double>(qRound(shown.x())), qRound(shown.y()) - qRound(m_ascent) + m_ascent};
}

void ShownText::draw(QPainter& painter, const QPoint& point, const QString& text) const {
    const QPointF begin = baseline(point);
    if (m_condensed == 1) {
        painter.drawText(begin, text);
        return;
    }
    const QTransform natural = painter.transform();
    painter.scale(m_condensed, 1);
    painter.drawText(QPointF(begin.x() / m_condensed, begin.y()), text);
    painter.setTransform(natural);
}

} // namespace quarvelle
