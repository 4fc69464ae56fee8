#pragma once

#include <QRect>
#include <QTransform>

#include "widgets/DrawingGrid.h"

class QWidget;

namespace quarvelle {

/// Where the pixels of a drawing at 100 % fall on a device that shows it larger. Each begins at a whole
/// device pixel, at the same one for whoever paints and whoever asks what is there. Texts are in the pixels
/// of the widget.
class PixelGrid final : public DrawingGrid {
public:
    /// `toDevice` leads from the drawing's pixels to the device's; it enlarges by at least 1, and moves. A
    /// widget shows the drawing enlarged by `factor`.
    PixelGrid(const QTransform& toDevice, double factor);
    /// `painter` is in the pixels of a widget that shows the drawing enlarged by `factor`, or of a picture of
    /// it.
    static PixelGrid painted(const QPainter& painter, double factor);
    /// The same on the screen, where the widget's window is the device.
    static PixelGrid onScreen(const QWidget& widget, double factor);

    /// What a rectangle covers of the device, edges included. A line one pixel thick has the same thickness
    /// everywhere; a larger area keeps off a line beside it and stays under a line on its own edge.
    QRect onDevice(const QRect& pixels) const;
    /// The pixel shown at a point of the device.
    QPoint pixelAt(const QPointF& point) const;

    /// `painter` paints on the device, whatever its transform.
    void fill(QPainter& painter, const QRect& pixels, const QColor& color) const override;
    QFontMetricsF metrics(const QFont& font) const override;
    ShownText text(const QFont& font, double condensed) const override;

private:
    QTransform m_toDevice;
    double m_factor;
    int m_thickness; ///< of a line, in device pixels
};

} // namespace quarvelle
