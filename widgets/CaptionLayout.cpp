#include "widgets/CaptionLayout.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "widgets/Fonts.h"

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

/// Breaks the text into lines; true if they are no wider than `width` and fit into the box's height. Lines
/// may be as close as the font's size, with no space between them: that still reads well.
bool CaptionLayout::layOut(const QString& text, double width, bool wraps) {
    const QFontMetricsF metrics(m_font);
    m_lines.clear();
    bool narrowEnough = true;
    // Lines break at spaces only: after a hyphen, "Cross-" would read as half a word.
    QTextLayout layout(QString(text).replace('-', QChar(0x2011)), m_font);
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

void CaptionLayout::draw(QPainter& painter, const QRectF& box, Qt::Alignment alignment, double factor) const {
    const QFontMetricsF metrics(m_font);
    const QFont font = enlarged(m_font, factor);
    const QFontMetricsF shownMetrics(font);
    const double height = metrics.height() + m_lineHeight * static_cast<double>(m_lines.size() - 1);
    double baseline = box.top() + metrics.ascent();
    if (alignment & Qt::AlignVCenter)
        baseline += std::max(0.0, (box.height() - height) / 2);
    const QTransform natural = painter.transform();
    painter.setFont(font);
    for (const QString& line : m_lines) {
        const bool centred = alignment & Qt::AlignHCenter;
        const QString text = centred ? line.trimmed() : line;
        const double width = metrics.horizontalAdvance(text) * m_condensed;
        const double left = box.left() + (centred ? (box.width() - width) / 2 : 0);
        painter.translate(left * factor, qRound(baseline * factor));
        // An enlarged font has a whole number of pixels, so its lines differ a little from their width at 100
        // %.
        if (const double shownWidth = shownMetrics.horizontalAdvance(text); shownWidth > 0)
            painter.scale(width * factor / shownWidth, 1);
        painter.drawText(QPointF(0, 0), text);
        painter.setTransform(natural);
        baseline += m_lineHeight;
    }
}

} // namespace quarvelle
