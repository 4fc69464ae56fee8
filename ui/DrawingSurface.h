#pragma once

#include <QBasicTimer>
#include <QWidget>

#include "ui/Drawing.h"

namespace quarvelle {

/// The widget that shows a drawing and tells of mouse buttons pressed on it, in the drawing's pixels.
class DrawingSurface : public QWidget, public Canvas {
    Q_OBJECT

public:
    using QWidget::QWidget;

    const Drawing& drawing() const { return m_drawing; }

    void fillRectangle(int left, int top, int right, int bottom, const QColor& color) override;
    void drawText(int x, int y, const QString& text, double room) override;
    void drawNote(int x, int y, const QString& text, double room) override;
    void clear();

signals:
    void pressed(int button, int shift, int x, int y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void repaintSoon();

    Drawing m_drawing;
    QBasicTimer m_repaint;
};

} // namespace quarvelle
