#include "widgets/DrawingGrid.h"

#include <QPainter>

namespace quarvelle {

void PaperGrid::fill(QPainter& painter, const QRect& pixels, const QColor& color) const {
    painter.fillRect(pixels, color);
}

QFontMetricsF PaperGrid::metrics(const QFont& font) const {
    return {font, &m_paper};
}

ShownText PaperGrid::text(const QFont& font, double condensed) const {
    return ShownText::onPaper(font, condensed, metrics(font).ascent());
}

} // namespace quarvelle
