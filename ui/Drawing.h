#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <variant>
#include <vector>

class QPainter;

namespace quarvelle {

/// Every pixel from one corner to the other, edges included.
struct FilledRectangle {
    QRect rectangle;
    QColor color;
    bool operator==(const FilledRectangle&) const = default;
};

/// Text with its top-left corner at a point, in pixels; condensed where it is wider than `room`.
struct TextAtPoint {
    QPoint point;
    QString text;
    double room = 0;
    bool operator==(const TextAtPoint&) const = default;
};

using DrawingItem = std::variant<FilledRectangle, TextAtPoint>;

/// What was drawn, in order. Screen and paper replay the same list, so they can't drift apart.
class Drawing {
public:
    /// From corner (`left`, `top`) to corner (`right`, `bottom`), both included.
    void fillRectangle(int left, int top, int right, int bottom, const QColor& color);
    void drawText(int x, int y, const QString& text, double room);
    void clear() { m_items.clear(); }

    const std::vector<DrawingItem>& items() const { return m_items; }

    /// Draws the list in the board's font and black, in the painter's coordinates.
    void replay(QPainter& painter) const;

private:
    std::vector<DrawingItem> m_items;
};

} // namespace quarvelle
