#pragma once

#include <QProxyStyle>
#include <unordered_map>

class QStackedWidget;

namespace quarvelle {

/// The unit of all pages. Pages are laid out at 100 %, and nothing rearranges when they are shown larger:
/// each control's place, its font, and the lines, ticks and insets that the style draws it with are
/// multiplied by one factor. Frames are whole device pixels thick at any factor, and look the same on all
/// systems.
class PageScale : public QProxyStyle {
    Q_OBJECT

public:
    static constexpr double least = 1;
    static constexpr double most = 4;
    /// A whole page with its margin, at 100 %.
    static constexpr QSize wholePage{760, 540};

    /// Takes on the pages, which are complete, with every control on them.
    explicit PageScale(QStackedWidget& pages);

    double factor() const { return m_factor; }
    /// From `least` to `most`. Everything on the pages follows at once and is sent a `StyleChange`.
    void setFactor(double factor);

    /// The factor of a widget on a page; 1 for any other.
    static double factorOf(const QWidget& widget);
    /// A control's place at 100 %. Any other widget is shown at 100 %.
    static QRect placeOf(const QWidget& widget);
    static void setPlace(QWidget& widget, const QRect& place);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

private:
    static const PageScale* of(const QWidget& widget);
    QRect shown(const QRect& place) const;

    QStackedWidget& m_pages;
    std::unordered_map<const QWidget*, QRect> m_places;    ///< of all controls, at 100 %
    std::unordered_map<const QWidget*, QSize> m_pageSizes; ///< at 100 %
    double m_factor = 1;
    mutable bool m_drawsUnits = false; ///< what is being drawn will be enlarged as a whole
};

} // namespace quarvelle
