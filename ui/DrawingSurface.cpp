#include "ui/DrawingSurface.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QtMath>

namespace quarvelle {

void DrawingSurface::fillRectangle(int left, int top, int right, int bottom, const QColor& color) {
    m_drawing.fillRectangle(left, top, right, bottom, color);
    repaintSoon();
}

void DrawingSurface::drawText(int x, int y, const QString& text, double room) {
    m_drawing.drawText(x, y, text, room);
    repaintSoon();
}

void DrawingSurface::drawNote(int x, int y, const QString& text, double room) {
    m_drawing.drawNote(x, y, text, room);
    repaintSoon();
}

void DrawingSurface::clear() {
    m_drawing.clear();
    repaintSoon();
}

/// A batch changes the drawing far more often than a screen shows it, and to paint it takes longer than to
/// make it.
void DrawingSurface::repaintSoon() {
    constexpr int milliseconds = 16;
    if (!m_repaint.isActive())
        m_repaint.start(milliseconds, this);
}

void DrawingSurface::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_repaint.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    m_repaint.stop();
    update();
}

void DrawingSurface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_drawing.replay(painter);
}

void DrawingSurface::mousePressEvent(QMouseEvent* event) {
    // On a scaled screen a press may lie between two pixels; it belongs to the one that it is in.
    emit pressed(static_cast<int>(event->button()), static_cast<int>(event->modifiers()),
                 qFloor(event->position().x()), qFloor(event->position().y()));
}

} // namespace quarvelle
