#include "ui/Drawing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "ui/Fonts.h"

namespace quarvelle {

namespace {

/// How the texts of a style are written.
struct Writing {
    QFont font;
    QFontMetricsF metrics;
    double condensed = 1; ///< width drawn over natural width such that every text fits its room; at most 1

    Writing(const QFont& styleFont, QPaintDevice* device) : font(styleFont), metrics(styleFont, device) {}
};

class Replay {
public:
    Replay(QPainter& painter, const std::vector<DrawingItem>& items)
        : m_painter(painter), m_number(boardFont(), painter.device()), m_note(noteFont(), painter.device()) {
        for (const DrawingItem& item : items)
            if (const auto* text = std::get_if<TextAtPoint>(&item)) {
                Writing& writing = text->style == TextStyle::note ? m_note : m_number;
                writing.condensed =
                    std::min(writing.condensed, text->room / writing.metrics.horizontalAdvance(text->text));
            }
        m_painter.setPen(Qt::black);
    }

    void operator()(const FilledRectangle& item) { m_painter.fillRect(item.rectangle, item.color); }

    void operator()(const TextAtPoint& item) {
        const Writing& writing = item.style == TextStyle::note ? m_note : m_number;
        if (m_inUse != &writing)
            m_painter.setFont(writing.font);
        m_inUse = &writing;
        const double baseline = item.point.y() + writing.metrics.ascent();
        if (writing.condensed == 1) {
            m_painter.drawText(QPointF(item.point.x(), baseline), item.text);
            return;
        }
        const QTransform natural = m_painter.transform();
        m_painter.scale(writing.condensed, 1);
        m_painter.drawText(QPointF(item.point.x() / writing.condensed, baseline), item.text);
        m_painter.setTransform(natural);
    }

private:
    QPainter& m_painter;
    Writing m_number;
    Writing m_note;
    const Writing* m_inUse = nullptr; ///< in the painter's font
};

} // namespace

void Drawing::fillRectangle(int left, int top, int right, int bottom, const QColor& color) {
    m_items.emplace_back(FilledRectangle{QRect(QPoint(left, top), QPoint(right, bottom)), color});
}

void Drawing::drawText(int x, int y, const QString& text, double room) {
    m_items.emplace_back(TextAtPoint{QPoint(x, y), text, room});
}

void Drawing::drawNote(int x, int y, const QString& text, double room) {
    m_items.emplace_back(TextAtPoint{QPoint(x, y), text, room, TextStyle::note});
}

void Drawing::replay(QPainter& painter) const {
    painter.save();
    Replay replay(painter, m_items);
    for (const DrawingItem& item : m_items)
        std::visit(replay, item);
    painter.restore();
}

} // namespace quarvelle
