#pragma once

#include <QFont>
#include <QPoint>

class QPainter;
class QString;
class QWidget;

namespace quarvelle {

/// How a widget on a page shows the texts of a drawing, which are in pixels at 100 %. What is typed into a
/// box with this font and begins at the same point looks as if it had been drawn.
class ShownText {
public:
    /// `font` is that at 100 %; `condensed` is the width drawn over natural width, at most 1.
    ShownText(const QWidget& widget, const QFont& font, double condensed);

    const QFont& font() const { return m_font; }
    /// Where a text with its top-left corner at a point of the drawing has it in the widget.
    QPoint corner(const QPoint& point) const;
    void draw(QPainter& painter, const QPoint& point, const QString& text) const;

private:
    double m_factor;
    QFont m_font;
    double m_ascentAt100;
    double m_ascent;
};

} // namespace quarvelle
