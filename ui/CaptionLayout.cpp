#include "ui/CaptionLayout.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace quarvelle {

CaptionLayout::CaptionLayout(const QString& text, const QFont& font, const QSizeF& box, bool wraps)
    : m_font(font), m_box(box) {
    constexpr double step = 0.01;
    for (m_condensed = 1; m_condensed > narrowest - step / 2; m_condensed -= step) {
        m_fits = layOut(text, box.width() / m_condensed, wraps);
        if (m_fits)
            return;
    }
}

/// Breaks the text into lines of at most `width`; true if they fit in the box's height. Lines may be set
/// solid (no lead between them), which digits and capitals bear well.
bool CaptionLayout::layOut(const QString& text, double width, bool wraps) {
    const QFontMetricsF metrics(m_font);
    m_lines.clear();
    bool narrowEnough = true;
    QTextLayout layout(text, m_font);
    QTextOption option;
    option.setWrapMode(wraps ? QTextOption::WordWrap : QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        narrowEnough = narrowEnough && line.naturalTextWidth() <= width;
        m_lines << text.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    const auto further = static_cast<double>(std::max<qsizetype>(m_lines.size() - 1, 0));
    m_lineHeight = metrics.height();
    if (further > 0)
        m_lineHeight = std::clamp((m_box.height() - metrics.height()) / further,
                                  static_cast<double>(m_font.pixelSize()), metrics.height());
    return narrowEnough && metrics.height() + further * m_lineHeight <= m_box.height() + 0.01;
}

void CaptionLayout::draw(QPainter& painter, const QRectF& box, Qt::Alignment alignment) const {
    const QFontMetricsF metrics(m_font);
    const double height = metrics.height() + m_lineHeight * static_cast<double>(m_lines.size() - 1);
    double top = box.top();
    if (alignment & Qt::AlignVCenter)
        top += std::max(0.0, (box.height() - height) / 2);
    painter.save();
    painter.setFont(m_font);
    painter.translate(box.left(), top + metrics.ascent());
    painter.scale(m_condensed, 1);
    const double width = box.width() / m_condensed;
    double baseline = 0;
    for (const QString& line : m_lines) {
        const double slack = width - metrics.horizontalAdvance(line.trimmed());
        const bool centred = alignment & Qt::AlignHCenter;
        painter.drawText(QPointF(centred ? slack / 2 : 0, baseline), centred ? line.trimmed() : line);
        baseline += m_lineHeight;
    }
    painter.restore();
}

} // namespace quarvelle
