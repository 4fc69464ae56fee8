#include "widgets/Drawing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "widgets/Fonts.h"
#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"
#include "widgets/ShownText.h"

namespace quarvelle {

namespace {

/// Width drawn over natural width such that every text of a style fits its room; at most 1.
double condensedBy(const std::vector<DrawingItem>& items, TextStyle style, const QFontMetricsF& metrics) {
    double condensed = 1;
    for (const DrawingItem& item : items)
        if (const auto* text = std::get_if<TextAtPoint>(&item); text && text->style == style)
            condensed = std::min(condensed, text->room / metrics.horizontalAdvance(text->text));
    return condensed;
}

/// How the texts of a style are written on paper.
struct Writing {
    QFont font;
    QFontMetricsF metrics;
    double condensed;

    Writing(const QFont& styleFont, TextStyle style, const std::vector<DrawingItem>& items,
            QPaintDevice* device)
        : font(styleFont), metrics(styleFont, device), condensed(condensedBy(items, style, metrics)) {}
};

class Replay {
public:
    Replay(QPainter& painter, const std::vector<DrawingItem>& items)
        : m_painter(painter), m_number(boardFont(), TextStyle::number, items, painter.device()),
          m_note(noteFont(), TextStyle::note, items, painter.device()) {
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

/// On a screen, whose pixels are few.
class Show {
public:
    Show(QPainter& painter, const QWidget& widget, const Drawing& drawing)
        : m_painter(painter), m_grid(PixelGrid::painted(painter, PageScale::factorOf(widget))),
          m_number(widget, boardFont(), drawing.condensed()),
          m_note(widget, noteFont(),
                 condensedBy(drawing.items(), TextStyle::note, QFontMetricsF(noteFont()))) {
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
    QPainter& m_painter;
    PixelGrid m_grid;
    ShownText m_number;
    ShownText m_note;
    const ShownText* m_inUse = nullptr; ///< in the painter's font
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

void Drawing::show(QPainter& painter, const QWidget& widget) const {
    painter.save();
    Show show(painter, widget, *this);
    for (const DrawingItem& item : m_items)
        std::visit(show, item);
    painter.restore();
}

double Drawing::condensed() const {
    return condensedBy(m_items, TextStyle::number, QFontMetricsF(boardFont()));
}

} // namespace quarvelle
