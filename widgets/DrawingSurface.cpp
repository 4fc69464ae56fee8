#include "widgets/DrawingSurface.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"

namespace quarvelle {

void DrawingSurface::fillRectangle(int left, int top, int right, int bottom, const QColor& color) {
    m_drawing.fillRectangle(left, top, right, bottom, color);
    repaintSoon();
}

void DrawingSurface::drawText(int x, int y, const QString& text, std::optional<double> room) {
    m_drawing.drawText(x, y, text, room);
    repaintSoon();
}

void DrawingSurface::drawNote(int x, int y, const QString& text, std::optional<double> room) {
    m_drawing.drawNote(x, y, text, room);
    repaintSoon();
}

void DrawingSurface::clear() {
    m_drawing.clear();
    repaintSoon();
}

PixelGrid DrawingSurface::grid() const {
    return PixelGrid::onScreen(*this, PageScale::factorOf(*this));
}

QPoint DrawingSurface::drawingPixel(const QPointF& point) const {
    const QPointF inWindow = mapTo(window(), point) * devicePixelRatio();
    return grid().pixelAt(inWindow);
}

QRectF DrawingSurface::shown(const QRect& pixels) const {
    const QRectF onDevice = grid().onDevice(pixels);
    const double ratio = devicePixelRatio();
    const QRectF inWindow(onDevice.topLeft() / ratio, onDevice.size() / ratio);
    return inWindow.translated(mapFrom(window(), QPointF(0, 0)));
}

/// A batch changes the drawing far more often than a screen can show it, and painting takes longer than the
/// change. So paints are at least 33 milliseconds apart; a change after a longer pause is painted at once.
void DrawingSurface::repaintSoon() {
    constexpr qint64 milliseconds = 33;
    if (m_repaint.isActive())
        return;
    const bool pause = !m_sincePaint.isValid() || m_sincePaint.hasExpired(milliseconds);
    if (pause)
        update();
    else
        m_repaint.start(static_cast<int>(milliseconds - m_sincePaint.elapsed()), this);
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
    const double factor = PageScale::factorOf(*this);
    m_drawing.replay(painter, PixelGrid::painted(painter, factor));
    painter.scale(factor, factor);
    paintAbove(painter);
    painter.end();
    m_sincePaint.start();
}

void DrawingSurface::mousePressEvent(QMouseEvent* event) {
    const QPoint pixel = drawingPixel(event->position());
    emit pressed(static_cast<int>(event->button()), static_cast<int>(event->modifiers()), pixel.x(),
                 pixel.y());
}

} // namespace quarvelle
