#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

#include "widgets/Drawing.h"

namespace quarvelle {

class PixelGrid;

/// A widget that shows a drawing, enlarged by the factor of its page, and reports mouse presses on it in the
/// drawing's pixels.
class DrawingSurface : public QWidget, public Canvas {
    Q_OBJECT

public:
    using QWidget::QWidget;

    const Drawing& drawing() const { return m_drawing; }
    /// Where the pixels of the drawing fall on those of the screen.
    PixelGrid grid() const;

    void fillRectangle(int left, int top, int right, int bottom, const QColor& color) override;
    void drawText(int x, int y, const QString& text, std::optional<double> room) override;
    void drawNote(int x, int y, const QString& text, std::optional<double> room) override;
    void clear();

    /// The pixel of the drawing that is shown at a point of the widget.
    QPoint drawingPixel(const QPointF& point) const;
    /// The part of the widget that shows a rectangle of the drawing.
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
