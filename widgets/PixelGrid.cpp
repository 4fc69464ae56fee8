#include "widgets/PixelGrid.h"

#include <QPainter>
#include <QWidget>
#include <QtMath>
#include <algorithm>

#include "widgets/Fonts.h"

namespace quarvelle {

namespace {

/// One direction of the grid.
struct Axis {
    double scale;
    double origin;
    int thickness;

    /// The device pixel that a pixel begins at. The small term rounds a value halfway between two always up,
    /// in spite of rounding errors.
    int begin(int pixel) const { return qFloor(pixel * scale + origin + 0.5 + 1e-6); }

    int first(int pixel, bool isLine) const {
        return isLine ? begin(pixel) : std::max(begin(pixel), begin(pixel - 1) + thickness);
    }
    int last(int pixel, bool isLine) const {
        const int end = begin(pixel) + thickness;
        return (isLine ? end : std::min(end, begin(pixel + 1))) - 1;
    }
    int pixelAt(double point) const {
        const int device = qFloor(point + 1e-6);
        int pixel = qFloor((device - origin) / scale);
        while (begin(pixel + 1) <= device)
            ++pixel;
        while (begin(pixel) > device)
            --pixel;
        return pixel;
    }
};

Axis across(const QTransform& toDevice, int thickness) {
    return {toDevice.m11(), toDevice.dx(), thickness};
}

Axis down(const QTransform& toDevice, int thickness) {
    return {toDevice.m22(), toDevice.dy(), thickness};
}

} // namespace

PixelGrid::PixelGrid(const QTransform& toDevice, double factor)
    : m_toDevice(toDevice), m_factor(factor), m_thickness(std::max(1, qRound(toDevice.m11()))) {}

PixelGrid PixelGrid::painted(const QPainter& painter, double factor) {
    return PixelGrid(QTransform::fromScale(factor, factor) * painter.deviceTransform(), factor);
}

PixelGrid PixelGrid::onScreen(const QWidget& widget, double factor) {
    const QPoint corner = widget.mapTo(widget.window(), QPoint(0, 0));
    const double ratio = widget.devicePixelRatio();
    return PixelGrid(QTransform::fromScale(factor, factor) *
                         QTransform::fromTranslate(corner.x(), corner.y()) *
                         QTransform::fromScale(ratio, ratio),
                     factor);
}

QRect PixelGrid::onDevice(const QRect& pixels) const {
    const Axis x = across(m_toDevice, m_thickness);
    const Axis y = down(m_toDevice, m_thickness);
    const bool isLine = pixels.width() == 1 || pixels.height() == 1;
    return {QPoint(x.first(pixels.left(), isLine), y.first(pixels.top(), isLine)),
            QPoint(x.last(pixels.right(), isLine), y.last(pixels.bottom(), isLine))};
}

QRect PixelGrid::betweenLines(const QRect& pixels) const {
    const Axis x = across(m_toDevice, m_thickness);
    const Axis y = down(m_toDevice, m_thickness);
    return {QPoint(x.begin(pixels.left() - 1) + m_thickness, y.begin(pixels.top() - 1) + m_thickness),
            QPoint(x.begin(pixels.right() + 1) - 1, y.begin(pixels.bottom() + 1) - 1)};
}

QPoint PixelGrid::pixelAt(const QPointF& point) const {
    return {across(m_toDevice, m_thickness).pixelAt(point.x()),
            down(m_toDevice, m_thickness).pixelAt(point.y())};
}

void PixelGrid::fill(QPainter& painter, const QRect& pixels, const QColor& color) const {
    fillDevice(painter, onDevice(pixels), color);
}

void PixelGrid::fillDevice(QPainter& painter, const QRect& area, const QColor& color) {
    painter.fillRect(painter.deviceTransform().inverted().mapRect(QRectF(area)), color);
}

QFontMetricsF PixelGrid::metrics(const QFont& font) const {
    return QFontMetricsF(enlarged(font, m_factor));
}

ShownText PixelGrid::text(const QFont& font, double condensed) const {
    return ShownText::onScreen(font, condensed, m_factor);
}

} // namespace quarvelle
