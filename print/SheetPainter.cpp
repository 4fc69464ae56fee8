#include "print/SheetPainter.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <algorithm>

#include "print/Printer.h"
#include "widgets/Drawing.h"
#include "widgets/DrawingGrid.h"
#include "widgets/Fonts.h"

namespace quarvelle {

namespace {

constexpr double millimetersPerInch = 25.4;
constexpr double captionPoints = 8;
/// The height kept free for the caption, in millimetres.
constexpr double captionRoom = 18 * millimetersPerInch / 72;

void paintCaption(QPainter& painter, const QRectF& area, const QString& caption, double point) {
    QFont font = boardFont();
    font.setPixelSize(static_cast<int>(captionPoints * point));
    const double width = QFontMetricsF(font, painter.device()).horizontalAdvance(caption);
    const double condensed = std::min(1.0, area.width() / width);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.save();
    painter.scale(condensed, 1);
    painter.drawText(QRectF(area.left(), area.top(), area.width() / condensed, area.height()),
                     Qt::AlignHCenter | Qt::AlignBottom | Qt::TextSingleLine, caption);
    painter.restore();
}

} // namespace

QSizeF roomAboveCaption(QSizeF paper) {
    return (paper - QSizeF(0, captionRoom)).expandedTo({1, 1});
}

void paintSheet(QPainter& painter, const Sheet& sheet) {
    const QRectF paper(0, 0, painter.device()->width(), painter.device()->height());
    const double inch = painter.device()->logicalDpiY();
    const double millimeter = inch / millimetersPerInch;
    painter.save();
    painter.translate(paper.adjusted(0, 0, 0, -captionRoom * millimeter).center());
    painter.scale(sheet.scale * millimeter, sheet.scale * millimeter);
    painter.translate(-QRectF(sheet.content).center());
    sheet.drawing.replay(painter, PaperGrid(*painter.device()));
    painter.restore();
    paintCaption(painter, paper, sheet.caption, inch / 72);
}

} // namespace quarvelle
