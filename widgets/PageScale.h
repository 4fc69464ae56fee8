#pragma once

#include <QProxyStyle>
#include <unordered_map>
#include <vector>

namespace quarvelle {

/// The factor by which pages are enlarged. Pages are laid out at 100 %, and keep their layout when they
/// are shown larger: the place and the font of each control, and the lines, ticks and insets that the style
/// draws, are multiplied by the same factor. Frames are whole device pixels thick at any factor. The style is
/// the same on all systems.
class PageScale : public QProxyStyle {
    Q_OBJECT

public:
    static constexpr double least = 1;
    static constexpr double most = 16;
    /// The size of a whole page with its margin, in pixels at 100 %.
    static constexpr QSize wholePage{760, 540};

    /// Scales `pages` from now on, which outlive it or stop being shown; every control must be on its page
    /// already. The size of a page at 100 % is its minimum size.
    PageScale(std::vector<QWidget*> pages, QObject* parent);

    double factor() const { return m_factor; }
    /// `factor` is from `least` to `most`. Every control follows at once and is sent a `StyleChange`; giving
    /// the pages their new sizes is left to whoever shows them.
    void setFactor(double factor);

    /// The size of a page as it is shown.
    QSize sizeOf(const QWidget& page) const;
    /// The size that has room for each of the pages, in pixels at 100 %.
    QSize wholeSize() const;
    /// Gives a page another size, in pixels at 100 %.
    static void setPageSize(QWidget& page, QSize size);

    /// The factor of a widget on a page; 1 for any other widget.
    static double factorOf(const QWidget& widget);
    /// The place of a control, in pixels at 100 %. A widget that is not on a page is always shown at 100 %.
    static QRect placeOf(const QWidget& widget);
    static void setPlace(QWidget& widget, const QRect& place);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

signals:
    /// A page has another size at 100 %.
    void pageResized();

private:
    static const PageScale* of(const QWidget& widget);
    QRect shown(const QRect& place) const;

    std::vector<QWidget*> m_pages;
    std::unordered_map<const QWidget*, QRect> m_places;    ///< of all controls, at 100 %
    std::unordered_map<const QWidget*, QSize> m_pageSizes; ///< at 100 %
    double m_factor = 1;
    mutable bool m_drawsUnits = false; ///< while drawing at 100 % what is enlarged afterwards
};

} // namespace quarvelle
