#include "widgets/ShownText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>
#include <algorithm>

#include "widgets/Fonts.h"
#include "widgets/PageScale.h"

namespace quarvelle {

ShownText::ShownText(const QWidget& widget, const QFont& font, double condensed)
    : m_factor(PageScale::factorOf(widget)), m_font(enlarged(font, m_factor)),
      m_ascentAt100(QFontMetricsF(font).ascent()), m_ascent(QFontMetricsF(m_font).ascent()) {
    const double natural = font.pixelSize() * m_factor / m_font.pixelSize();
    m_font.setStretch(std::max(1, qFloor(100 * condensed * natural + 1e-6)));
}

QPoint ShownText::corner(const QPoint& point) const {
    return {qRound(point.x() * m_factor), qRound((point.y() + m_ascentAt100) * m_factor) - qRound(m_ascent)};
}

void ShownText::draw(QPainter& painter, const QPoint& point, const QString& text) const {
    painter.drawText(QPointF(corner(point)) + QPointF(0, m_ascent), text);
}

} // namespace quarvelle
