#pragma once

#include <QFont>
#include <QRectF>
#include <QStringList>

class QPainter;

namespace quarvelle {

/// A caption laid out in a box at 100 %. It may wrap onto as many lines as fit in the box; a text that still
/// doesn't fit is condensed, never cut off. Drawn at any factor it has the same lines.
class CaptionLayout {
public:
    /// The least share of its natural width that a text is condensed to: narrower, it is hard to read.
    static constexpr double narrowest = 0.7;

    /// `font` and `box` are in pixels at 100 %.
    CaptionLayout(const QString& text, const QFont& font, const QSizeF& box, bool wraps);

    /// Whether the whole text is inside the box, condensed to `narrowest` at most.
    bool fits() const { return m_fits; }

    /// Draws the caption enlarged by `factor`. `box`, at 100 %, has the size that was laid out for; `painter`
    /// is not scaled.
    void draw(QPainter& painter, const QRectF& box, Qt::Alignment alignment, double factor) const;

private:
    bool layOut(const QString& text, double width, bool wraps);

    QFont m_font;
    QSizeF m_box;
    QStringList m_lines;
    double m_lineHeight = 0;
    double m_condensed = 1; ///< width drawn over natural width, at most 1
    bool m_fits = false;
};

} // namespace quarvelle
