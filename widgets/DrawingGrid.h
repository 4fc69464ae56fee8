#pragma once

#include <QFontMetricsF>

#include "widgets/ShownText.h"

class QColor;
class QPaintDevice;
class QRect;

namespace quarvelle {

/// Translates a drawing, in pixels at 100 %, to a device: a screen or a sheet of paper.
class DrawingGrid {
public:
    virtual ~DrawingGrid() = default;

    /// Fills a rectangle of the drawing, edges included.
    virtual void fill(QPainter& painter, const QRect& pixels, const QColor& color) const = 0;
    /// The metrics of a font, given at 100 %, as large as it is shown; and how many times as large that is.
    virtual QFontMetricsF metrics(const QFont& font) const = 0;
    virtual double enlargement() const = 0;
    /// How texts are written; `condensed` is the width drawn over the natural width, at most 1.
    virtual ShownText text(const QFont& font, double condensed) const = 0;
};

/// Paper, whose dots are so fine that nothing has to be moved to whole ones. Painters are in the drawing's
/// pixels.
class PaperGrid final : public DrawingGrid {
public:
    /// `paper` outlives the grid.
    explicit PaperGrid(QPaintDevice& paper) : m_paper(paper) {}

    void fill(QPainter& painter, const QRect& pixels, const QColor& color) const override;
    QFontMetricsF metrics(const QFont& font) const override;
    double enlargement() const override { return 1; }
    ShownText text(const QFont& font, double condensed) const override;

private:
    QPaintDevice& m_paper;
};

} // namespace quarvelle
