#pragma once

#include <QFont>
#include <QPoint>

class QPainter;
class QString;

namespace quarvelle {

/// How a device writes the texts of a drawing, which are in pixels at 100 %. What is typed into a box with
/// the font of a screen and begins at the same point looks as if it had been drawn.
class ShownText {
public:
    /// On a screen that shows the drawing enlarged by `factor`, in whole pixels. `font` is that at 100 %;
    /// `condensed` is the width drawn over natural width, at most 1.
    static ShownText onScreen(const QFont& font, double condensed, double factor);
    /// On paper, on a painter in the drawing's pixels; `ascent` is the font's there.
    static ShownText onPaper(const QFont& font, double condensed, double ascent);

    const QFont& font() const { return m_font; }
    /// Where a text with its top-left corner at a point of the drawing has it on the screen.
    QPoint corner(const QPoint& point) const { return (baseline(point) - QPointF(0, m_ascent)).toPoint(); }
    void draw(QPainter& painter, const QPoint& point, const QString& text) const;

private:
    ShownText() = default;
    QPointF baseline(const QPoint& point) const;

    QFont m_font;
    double m_factor = 1;
    double m_ascentAt100 = 0;
    double m_ascent = 0;     ///< as shown; a whole number on a screen
    double m_condensed = 1;  ///< by the painter; a screen has a narrower font instead
    bool m_onPixels = false; ///< texts begin at whole ones
};

} // namespace quarvelle
