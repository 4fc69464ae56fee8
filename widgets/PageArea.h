#pragma once

#include <QScrollArea>
#include <memory>
#include <vector>

namespace quarvelle {

class Zoom;

/// The client area. Shows one page at a time, in its middle, as large as the page's zoom says, and scrolls
/// where that is larger than the area: with the wheel, the bars, and with Page Up and Page Down, which go to
/// the left and to the right with Shift. Ctrl with the wheel zooms. What has the keyboard stays in view.
class PageArea : public QScrollArea {
    Q_OBJECT

public:
    explicit PageArea(QWidget* parent = nullptr);

    /// How high the line at the foot is, in pixels, which lies over the area now and then: pages that keep
    /// off it end above it, and everything can be scrolled out from under it.
    void setFootRoom(int height);

    /// Takes on a page; they count from 0 in this order. Pages may share a zoom, and one page
    /// may be taken on again with another.
    void addPage(QWidget& page, std::shared_ptr<Zoom> zoom);
    void setCurrentIndex(int index);
    int currentIndex() const { return m_current; }
    QWidget* currentWidget() const { return m_pages[static_cast<std::size_t>(m_current)].widget; }

    void zoomIn();
    void zoomOut();
    void zoomToFit();

    /// Scrolls so that an area of a widget on the page shown can be seen, off the line at the foot.
    void scrollTo(const QWidget& widget, const QRect& area);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Page {
        QWidget* widget;
        std::shared_ptr<Zoom> zoom;
    };

    Zoom& zoom() const { return *m_pages[static_cast<std::size_t>(m_current)].zoom; }
    void layOut();
    void showKeyboard();

    QWidget* m_stage;
    std::vector<Page> m_pages;
    int m_current = 0;
    int m_footRoom = 0;
    int m_turned = 0; ///< of the wheel since the last step, in eighths of a degree
};

} // namespace quarvelle
