#include "ui/Drawing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "ui/Fonts.h"
#include "ui/PageScale.h"
#include "ui/PixelGrid.h"
#include "ui/ShownText.h"

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

/// On a screen, whose pixels are few.
struct Show {
    QPainter& painter;
    const PixelGrid& grid;
    const ShownText& text;

    void operator()(const FilledRectangle& item) const { grid.fill(painter, item.rectangle, item.color); }
    void operator()(const TextAtPoint& item) const { text.draw(painter, item.point, item.text); }
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

void Drawing::show(QPainter& painter, const QWidget& widget) const {
    const ShownText text(widget, condensed());
    painter.save();
    painter.setFont(text.font());
    painter.setPen(Qt::black);
    const PixelGrid grid = PixelGrid::painted(painter, PageScale::factorOf(widget));
    const Show show{painter, grid, text};
    for (const DrawingItem& item : m_items)
        std::visit(show, item);
    painter.restore();
}

double Drawing::condensed() const {
    return condensedBy(m_items, QFontMetricsF(boardFont()));
}

} // namespace quarvelle
