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

/// Text with its top-left corner at a point and, where it is limited, `room` for its width, in pixels.
struct TextAtPoint {
    QPoint point;
    QString text;
    std::optional<double> room;
    TextStyle style = TextStyle::number;
    bool operator==(const TextAtPoint&) const = default;
};

using DrawingItem = std::variant<FilledRectangle, TextAtPoint>;

/// What can be drawn on, in pixels.
class Canvas {
public:
    virtual ~Canvas() = default;

    /// From corner (`left`, `top`) to corner (`right`, `bottom`), both included.
    virtual void fillRectangle(int left, int top, int right, int bottom, const QColor& color) = 0;
    /// In black, the top-left corner at (`x`, `y`), no wider than `room`, which is positive, if it is given.
    virtual void drawText(int x, int y, const QString& text, std::optional<double> room) = 0;
    /// Likewise, in the smaller font of the notes.
    virtual void drawNote(int x, int y, const QString& text, std::optional<double> room) = 0;
};

/// What was drawn, in order. Screen and paper replay the same list, so they can't drift apart.
class Drawing final : public Canvas {
public:
    void fillRectangle(int left, int top, int right, int bottom, const QColor& color) override;
    void drawText(int x, int y, const QString& text, std::optional<double> room) override;
    void drawNote(int x, int y, const QString& text, std::optional<double> room) override;
    void clear() { m_items.clear(); }

    const std::vector<DrawingItem>& items() const { return m_items; }

    /// Draws the list where the grid of a device puts it. Where one text is too wide for its room, all of its
    /// style are condensed alike, so that digits have one width.
    void replay(QPainter& painter, const DrawingGrid& grid) const;
    /// How far the texts of a style are condensed: width drawn over natural width, at most 1.
    double condensed(TextStyle style, const DrawingGrid& grid) const;

private:
    std::vector<DrawingItem> m_items;
};

} // namespace quarvelle
