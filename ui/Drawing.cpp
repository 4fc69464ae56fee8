#include "ui/Drawing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "ui/Fonts.h"

namespace quarvelle {

namespace {

/// Width drawn over natural width such that every text of the list fits its room; at most 1.
double condensedBy(const std::vector<DrawingItem>& items, const QFontMetricsF& metrics) {
    double condensed = 1;
    for (const DrawingItem& item : items)
        if (const auto* text = std::get_if<TextAtPoint>(&item))
            condensed = std::min(condensed, text->room / metrics.horizontalAdvance(text->text));
    return condensed;
}

class Replay {
public:
    Replay(QPainter& painter, const std::vector<DrawingItem>& items)
        : m_painter(painter), m_metrics(painter.font(), painter.device()),
          m_condensed(condensedBy(items, m_metrics)) {}

    void operator()(const FilledRectangle& item) const { m_painter.fillRect(item.rectangle, item.color); }

    void operator()(const TextAtPoint& item) const {
        const double baseline = item.point.y() + m_metrics.ascent();
        if (m_condensed == 1) {
            m_painter.drawText(QPointF(item.point.x(), baseline), item.text);
            return;
        }
        const QTransform natural = m_painter.transform();
        m_painter.scale(m_condensed, 1);
        m_painter.drawText(QPointF(item.point.x() / m_condensed, baseline), item.text);
        m_painter.setTransform(natural);
    }

private:
    QPainter& m_painter;
    QFontMetricsF m_metrics;
    double m_condensed;
};

} // namespace

void Drawing::fillRectangle(int left, int top, int right, int bottom, const QColor& color) {
    m_items.emplace_back(FilledRectangle{QRect(QPoint(left, top), QPoint(right, bottom)), color});
}

void Drawing::drawText(int x, int y, const QString& text, double room) {
    m_items.emplace_back(TextAtPoint{QPoint(x, y), text, room});
}

void Drawing::replay(QPainter& painter) const {
    painter.save();
    painter.setFont(boardFont());
    painter.setPen(Qt::black);
    const Replay replay(painter, m_items);
    for (const DrawingItem& item : m_items)
        std::visit(replay, item);
    painter.restore();
}

} // namespace quarvelle
