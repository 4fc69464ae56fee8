#pragma once

#include <QFont>
#include <QRectF>
#include <QStringList>

class QPainter;

namespace quarvelle {

/// A caption laid out in a box at 100 %: on as many lines as the box has room for when it may wrap, and
/// condensed, never shortened, where it would not fit otherwise. Drawn larger it has the same lines.
class CaptionLayout {
public:
    /// Text narrower than this share of its natural width is hard to read.
    static constexpr double narrowest = 0.7;

    CaptionLayout(const QString& text, const QFont& font, const QSizeF& box, bool wraps);

    /// Whether the whole text lies inside the box at a width that can be read.
    bool fits() const { return m_fits; }

    /// `box` is the one laid out in, in its place at 100 %; `painter` enlarges nothing.
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
