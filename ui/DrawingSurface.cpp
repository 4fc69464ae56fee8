#include "ui/DrawingSurface.h"

#include <QMouseEvent>
#include <QPainter>

namespace quarvelle {

void DrawingSurface::fillRectangle(int left, int top, int right, int bottom, const QColor& color) {
    m_drawing.fillRectangle(left, top, right, bottom, color);
    update();
}

void DrawingSurface::drawText(int x, int y, const QString& text, double room) {
    m_drawing.drawText(x, y, text, room);
    update();
}

void DrawingSurface::clear() {
    m_drawing.clear();
    update();
}

void DrawingSurface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_drawing.replay(painter);
}

void DrawingSurface::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    emit pressed(static_cast<int>(event->button()), static_cast<int>(event->modifiers()), at.x(), at.y());
}

} // namespace quarvelle
