#include "widgets/PageArea.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "widgets/PageScale.h"
#include "widgets/Zoom.h"

namespace quarvelle {

namespace {

/// Scrolls in one direction until `begin` to `end`, with as much again on either side as there is room for,
/// are inside the `room` that can be seen; the beginning, where there is no room for both.
void scrollInto(QScrollBar& bar, int begin, int end, int room) {
    const int margin = std::clamp((room - (end - begin)) / 2, 0, end - begin);
    const int value = std::max(bar.value(), end + margin - room);
    bar.setValue(std::min(value, begin - margin));
}

} // namespace

PageArea::PageArea(QWidget* parent) : QScrollArea(parent), m_stage(new QWidget) {
    setWidgetResizable(true);
    setWidget(m_stage);
}

void PageArea::setFootRoom(int height) {
    m_footRoom = height;
    layOut();
}

void PageArea::addPage(QWidget& page, std::shared_ptr<Zoom> zoom) {
    page.setParent(m_stage);
    page.setVisible(m_pages.empty());
    page.setEnabled(m_pages.empty());
    connect(&zoom->scale(), &PageScale::pageResized, this, &PageArea::layOut, Qt::UniqueConnection);
    m_pages.push_back({&page, std::move(zoom)});
    layOut();
}

void PageArea::setCurrentIndex(int index) {
    QWidget* const last = currentWidget();
    m_current = index;
    layOut();
    if (last == currentWidget())
        return;
    // What is hidden can still be pressed by way of assistive technology, unless it is disabled.
    currentWidget()->setEnabled(true);
    currentWidget()->show();
    // Hidden with the keyboard, a page would leave it to nobody.
    if (last->isAncestorOf(window()->focusWidget()))
        currentWidget()->setFocus();
    last->hide();
    last->setEnabled(false);
}

void PageArea::zoomIn() {
    zoom().in();
    layOut();
}

void PageArea::zoomOut() {
    zoom().out();
    layOut();
}

void PageArea::zoomToFit() {
    zoom().fit();
    layOut();
}

void PageArea::layOut() {
    if (m_pages.empty())
        return;
    // That of an area without scroll bars: bars that come must not make the page fit and go again.
    const QSize client = maximumViewportSize();
    zoom().follow(client, m_footRoom);
    const QSize size = zoom().scale().sizeOf(*currentWidget());
    const int foot = zoom().keepsOffFoot() || size.height() > client.height() ? m_footRoom : 0;
    m_stage->setMinimumSize(size + QSize(0, foot));
    // At once; by itself it would follow at the next turn, after a frame at the old place.
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(this, &request);
    const QSize room = m_stage->size() - size;
    currentWidget()->setGeometry(
        {QPoint(room.width() / 2, std::min(room.height() / 2, room.height() - foot)), size});
    showKeyboard();
}

void PageArea::showKeyboard() {
    const QWidget* const focus = window()->focusWidget();
    if (focus == currentWidget())
        scrollTo(*focus, focus->inputMethodQuery(Qt::ImCursorRectangle).toRect());
    else if (focus != nullptr && currentWidget()->isAncestorOf(focus))
        scrollTo(*focus, focus->rect());
}

void PageArea::scrollTo(const QWidget& widget, const QRect& area) {
    if (area.isEmpty())
        return;
    const QRect onStage(widget.mapTo(m_stage, area.topLeft()), area.size());
    scrollInto(*horizontalScrollBar(), onStage.left(), onStage.left() + onStage.width(), viewport()->width());
    scrollInto(*verticalScrollBar(), onStage.top(), onStage.top() + onStage.height(),
               viewport()->height() - m_footRoom);
}

void PageArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    layOut();
}

void PageArea::keyPressEvent(QKeyEvent* event) {
    const bool isBack = event->key() == Qt::Key_PageUp;
    if ((!isBack && event->key() != Qt::Key_PageDown) || event->modifiers() & ~Qt::ShiftModifier) {
        QScrollArea::keyPressEvent(event);
        return;
    }
    QScrollBar& bar = event->modifiers() & Qt::ShiftModifier ? *horizontalScrollBar() : *verticalScrollBar();
    bar.triggerAction(isBack ? QScrollBar::SliderPageStepSub : QScrollBar::SliderPageStepAdd);
}

void PageArea::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        m_turned = 0;
        QScrollArea::wheelEvent(event);
        return;
    }
    constexpr int notch = 120;
    for (m_turned += event->angleDelta().y(); std::abs(m_turned) >= notch;) {
        const bool away = m_turned > 0;
        away ? zoomIn() : zoomOut();
        m_turned -= away ? notch : -notch;
    }
}

} // namespace quarvelle
