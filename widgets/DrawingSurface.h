#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

#include "widgets/Drawing.h"

namespace quarvelle {

class PixelGrid;

/// The widget that shows a drawing, as large as it shows a page, and tells of mouse buttons pressed on it, in
/// the drawing's pixels.
class DrawingSurface : public QWidget, public Canvas {
    Q_OBJECT

public:
    using QWidget::QWidget;

    const Drawing& drawing() const { return m_drawing; }
    /// Where the drawing is in the pixels of the screen.
    PixelGrid grid() const;

    void fillRectangle(int left, int top, int right, int bottom, const QColor& color) override;
    void drawText(int x, int y, const QString& text, std::optional<double> room) override;
    void drawNote(int x, int y, const QString& text, std::optional<double> room) override;
    void clear();

    /// The pixel of the drawing that is shown at a point of the widget.
    QPoint drawingPixel(const QPointF& point) const;
    /// What part of the widget shows a rectangle of the drawing.
    QRectF shown(const QRect& pixels) const;

signals:
    void pressed(int button, int shift, int x, int y);

protected:
    /// Paints over the drawing, in the drawing's pixels.
    virtual void paintAbove(QPainter&) {}

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void repaintSoon();

    Drawing m_drawing;
    QBasicTimer m_repaint;
    QElapsedTimer m_sincePaint;
};

} // namespace quarvelle
