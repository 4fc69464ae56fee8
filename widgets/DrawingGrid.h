#pragma once

#include <QFontMetricsF>

#include "widgets/ShownText.h"

class QColor;
class QPaintDevice;
class QRect;

namespace quarvelle {

/// Where a device, a screen or a sheet of paper, has what is drawn at 100 %.
class DrawingGrid {
public:
    virtual ~DrawingGrid() = default;

    /// Fills a rectangle of the drawing, edges included.
    virtual void fill(QPainter& painter, const QRect& pixels, const QColor& color) const = 0;
    /// The widths of texts at 100 %, as the device has them.
    virtual QFontMetricsF metrics(const QFont& font) const = 0;
    /// How texts are written; `condensed` is the width drawn over natural width, at most 1.
    virtual ShownText text(const QFont& font, double condensed) const = 0;
};

/// Paper, whose dots are so many that everything is where it belongs. Painters are in the drawing's pixels.
class PaperGrid final : public DrawingGrid {
public:
    /// `paper` outlives the grid.
    explicit PaperGrid(QPaintDevice& paper) : m_paper(paper) {}

    void fill(QPainter& painter, const QRect& pixels, const QColor& color) const override;
    QFontMetricsF metrics(const QFont& font) const override;
    ShownText text(const QFont& font, double condensed) const override;

private:
    QPaintDevice& m_paper;
};

} // namespace quarvelle
