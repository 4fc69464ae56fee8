#pragma once

#include <QRect>
#include <QTransform>

#include "widgets/DrawingGrid.h"

class QWidget;

namespace quarvelle {

/// Where the pixels of a drawing at 100 % fall on a screen that shows it larger. Each begins at a whole
/// device pixel, and painting it and finding what is at a point agree on which one. Texts are in the pixels
/// of the widget.
class PixelGrid final : public DrawingGrid {
public:
    /// `toDevice` maps the drawing's pixels to those of the device; it only enlarges, by 1 or more, and
    /// moves. `factor` is how much a widget enlarges the drawing.
    PixelGrid(const QTransform& toDevice, double factor);
    /// For a `painter` in the pixels of a widget, or of a picture of it, that shows the drawing enlarged by
    /// `factor`.
    static PixelGrid painted(const QPainter& painter, double factor);
    /// For a widget on the screen; the device is its window.
    static PixelGrid onScreen(const QWidget& widget, double factor);

    /// The device pixels that a rectangle covers, edges included. Lines one pixel thick are equally thick
    /// everywhere. A larger area doesn't reach into a line beside it, nor beyond a line on its own edge.
    QRect onDevice(const QRect& pixels) const;
    /// The same of an area whose edges lie between lines right beside it: it covers all up to them.
    QRect betweenLines(const QRect& pixels) const;
    /// How thick a line is, in device pixels.
    int thickness() const { return m_thickness; }
    /// The pixel of the drawing that is shown at a point of the device.
    QPoint pixelAt(const QPointF& point) const;

    /// `painter` paints on the device; its transform may be any.
    void fill(QPainter& painter, const QRect& pixels, const QColor& color) const override;
    /// Fills pixels of the device.
    static void fillDevice(QPainter& painter, const QRect& area, const QColor& color);
    QFontMetricsF metrics(const QFont& font) const override;
    double enlargement() const override { return m_factor; }
    ShownText text(const QFont& font, double condensed) const override;

private:
    QTransform m_toDevice;
    double m_factor;
    int m_thickness; ///< of a line, in device pixels
};

} // namespace quarvelle
