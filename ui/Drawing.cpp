#include "ui/Drawing.h"

#include <QFontMetricsF>
#include <QPainter>

#include "ui/Fonts.h"

namespace quarvelle {

namespace {

class Replay {
public:
    explicit Replay(QPainter& painter) : m_painter(painter), m_metrics(painter.font(), painter.device()) {}

    void operator()(const FilledRectangle& item) const { m_painter.fillRect(item.rectangle, item.color); }

    void operator()(const TextAtPoint& item) const {
        const double width = m_metrics.horizontalAdvance(item.text);
        m_painter.save();
        m_painter.translate(item.point.x(), item.point.y() + m_metrics.ascent());
        if (width > item.room)
            m_painter.scale(item.room / width, 1);
        m_painter.drawText(QPointF(0, 0), item.text);
        m_painter.restore();
    }

private:
    QPainter& m_painter;
    QFontMetricsF m_metrics;
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
    const Replay replay(painter);
    for (const DrawingItem& item : m_items)
        std::visit(replay, item);
    painter.restore();
}

} // namespace quarvelle
