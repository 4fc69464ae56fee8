#include "widgets/Drawing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "widgets/DrawingGrid.h"
#include "widgets/Fonts.h"

namespace quarvelle {

namespace {

QFont fontOf(TextStyle style) {
    return style == TextStyle::note ? noteFont() : boardFont();
}

class Replay {
public:
    Replay(QPainter& painter, const DrawingGrid& grid, const Drawing& drawing)
        : m_painter(painter), m_grid(grid), m_number(shown(TextStyle::number, grid, drawing)),
          m_note(shown(TextStyle::note, grid, drawing)) {
        m_painter.setPen(Qt::black);
    }

    void operator()(const FilledRectangle& item) { m_grid.fill(m_painter, item.rectangle, item.color); }

    void operator()(const TextAtPoint& item) {
        const ShownText& text = item.style == TextStyle::note ? m_note : m_number;
        if (m_inUse != &text)
            m_painter.setFont(text.font());
        m_inUse = &text;
        text.draw(m_painter, item.point, item.text);
    }

private:
    static ShownText shown(TextStyle style, const DrawingGrid& grid, const Drawing& drawing) {
        return grid.text(fontOf(style), drawing.condensed(style, grid));
    }

    QPainter& m_painter;
    const DrawingGrid& m_grid;
    ShownText m_number;
    ShownText m_note;
    const ShownText* m_inUse = nullptr; ///< whose font the painter has
};

} // namespace

void Drawing::fillRectangle(int left, int top, int right, int bottom, const QColor& color) {
    m_items.emplace_back(FilledRectangle{QRect(QPoint(left, top), QPoint(right, bottom)), color});
}

void Drawing::drawText(int x, int y, const QString& text, std::optional<double> room) {
    m_items.emplace_back(TextAtPoint{QPoint(x, y), text, room});
}

void Drawing::drawNote(int x, int y, const QString& text, std::optional<double> room) {
    m_items.emplace_back(TextAtPoint{QPoint(x, y), text, room, TextStyle::note});
}

void Drawing::replay(QPainter& painter, const DrawingGrid& grid) const {
    painter.save();
    Replay replay(painter, grid, *this);
    for (const DrawingItem& item : m_items)
        std::visit(replay, item);
    painter.restore();
}

double Drawing::condensed(TextStyle style, const DrawingGrid& grid) const {
    const QFontMetricsF metrics = grid.metrics(fontOf(style));
    double condensed = 1;
    for (const DrawingItem& item : m_items)
        if (const auto* text = std::get_if<TextAtPoint>(&item); text && text->style == style && text->room)
            condensed =
                std::min(condensed, *text->room * grid.enlargement() / metrics.horizontalAdvance(text->text));
    return condensed;
}

} // namespace quarvelle
