#include "print/SheetPainter.h"

#include <QPaintDevice>
#include <QPainter>
#include <algorithm>

#include "print/Printer.h"
#include "ui/Drawing.h"
#include "ui/Fonts.h"

namespace quarvelle {

namespace {

constexpr double captionPoints = 8;
/// Paper kept free for the caption, in points.
constexpr double captionRoom = 18;

void paintCaption(QPainter& painter, const QRectF& area, const QString& caption, double point) {
    QFont font = boardFont();
    font.setPixelSize(static_cast<int>(captionPoints * point));
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextSingleLine, caption);
}

} // namespace

void paintSheet(QPainter& painter, const Sheet& sheet) {
    const QRectF paper(0, 0, painter.device()->width(), painter.device()->height());
    const double point = painter.device()->logicalDpiY() / 72.0;
    const QRectF area = paper.adjusted(0, 0, 0, -captionRoom * point);
    const QRectF content = sheet.content;
    const double scale = std::min(area.width() / sheet.frame.width(), area.height() / sheet.frame.height());
    painter.save();
    painter.translate(area.center());
    painter.scale(scale, scale);
    painter.translate(-content.center());
    sheet.drawing.replay(painter);
    painter.restore();
    paintCaption(painter, paper, sheet.caption, point);
}

} // namespace quarvelle
