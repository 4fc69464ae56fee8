#pragma once

#include <QFont>
#include <QPoint>

class QPainter;
class QString;

namespace quarvelle {

/// How a device writes the texts of a drawing, whose places are in pixels at 100 %. Text typed into a box
/// looks exactly like drawn text if the box has this font and begins its text at the same `corner`.
class ShownText {
public:
    /// On a screen that shows the drawing enlarged by `factor`; texts begin at whole pixels. `font` is the
    /// one at 100 %; `condensed` is the width drawn over the natural width, at most 1.
    static ShownText onScreen(const QFont& font, double condensed, double factor);
    /// On paper, for a painter in the drawing's pixels; `ascent` is that of `font` on paper.
    static ShownText onPaper(const QFont& font, double condensed, double ascent);

    const QFont& font() const { return m_font; }
    /// The top-left corner on the screen, in the widget's pixels, of a text that has it at `point` in the
    /// drawing.
    QPoint corner(const QPoint& point) const { return (baseline(point) - QPointF(0, m_ascent)).toPoint(); }
    void draw(QPainter& painter, const QPoint& point, const QString& text) const;

private:
    ShownText() = default;
    QPointF baseline(const QPoint& point) const;

    QFont m_font;
    double m_factor = 1;
    double m_ascentAt100 = 0;
    double m_ascent = 0;     ///< as shown; a whole number on a screen
    double m_condensed = 1;  ///< by scaling the painter; on a screen the font itself is narrower
    bool m_onPixels = false; ///< whether texts begin at whole pixels
};

} // namespace quarvelle
