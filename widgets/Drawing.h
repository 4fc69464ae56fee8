#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <optional>
#include <variant>
#include <vector>

class QPainter;

namespace quarvelle {

class DrawingGrid;

/// Every pixel from one corner to the other, edges included.
struct FilledRectangle {
    QRect rectangle;
    QColor color;
    bool operator==(const FilledRectangle&) const = default;
};

enum class TextStyle {
    number, ///< in a cell, in the board's font
    note,   ///< beside a board, smaller
};

/// Text with its top-left corner at a point, and the greatest width it may have, if any; in pixels.
struct TextAtPoint {
    QPoint point;
    QString text;
    std::optional<double> room;
    TextStyle style = TextStyle::number;
    bool operator==(const TextAtPoint&) const = default;
};

using DrawingItem = std::variant<FilledRectangle, TextAtPoint>;

/// What can be drawn on, in pixels at 100 %.
class Canvas {
public:
    virtual ~Canvas() = default;

    /// Fills from corner (`left`, `top`) to corner (`right`, `bottom`), both included.
    virtual void fillRectangle(int left, int top, int right, int bottom, const QColor& color) = 0;
    /// Writes in black with the top-left corner at (`x`, `y`), no wider than `room`, if given; `room` is
    /// positive.
    virtual void drawText(int x, int y, const QString& text, std::optional<double> room) = 0;
    /// The same in the smaller font of the notes.
    virtual void drawNote(int x, int y, const QString& text, std::optional<double> room) = 0;
};

/// What was drawn, in order. Screen and paper replay the same list, so they always show the same.
class Drawing final : public Canvas {
public:
    void fillRectangle(int left, int top, int right, int bottom, const QColor& color) override;
    void drawText(int x, int y, const QString& text, std::optional<double> room) override;
    void drawNote(int x, int y, const QString& text, std::optional<double> room) override;
    void clear() { m_items.clear(); }

    const std::vector<DrawingItem>& items() const { return m_items; }

    /// Draws the list on a device, at the places that `grid` gives. Where one text is too wide for its room,
    /// all texts of its style are condensed alike, so that all digits have the same width.
    void replay(QPainter& painter, const DrawingGrid& grid) const;
    /// How far the texts of a style are condensed: the width drawn over the natural width, at most 1.
    double condensed(TextStyle style, const DrawingGrid& grid) const;

private:
    std::vector<DrawingItem> m_items;
};

} // namespace quarvelle
