#include "widgets/Zoom.h"

#include <QScrollArea>
#include <QWheelEvent>
#include <QtMath>
#include <algorithm>

#include "widgets/PageScale.h"

namespace quarvelle {

Zoom::Zoom(QScrollArea& client, PageScale& scale) : QObject(&client), m_client(client), m_scale(scale) {
    client.viewport()->installEventFilter(this);
}

void Zoom::fit() {
    m_fits = true;
    // A page that fits has no scroll bars, so it may have the room of those there are now.
    const QSizeF client = m_client.maximumViewportSize();
    show(std::min(client.width() / PageScale::wholePage.width(),
                  client.height() / PageScale::wholePage.height()));
}

/// Goes to the next quarter.
void Zoom::step(int direction) {
    constexpr double perUnit = 4;
    constexpr double shortest = 0.1; // a smaller step would hardly be seen
    const double quarters = m_scale.factor() * perUnit + direction * shortest;
    m_fits = false;
    show((direction > 0 ? std::ceil(quarters) : std::floor(quarters)) / perUnit);
}

void Zoom::show(double factor) {
    factor = std::clamp(factor, PageScale::least, PageScale::most);
    if (factor != m_scale.factor())
        m_scale.setFactor(factor);
}

bool Zoom::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && m_fits)
        fit();
    if (event->type() != QEvent::Wheel)
        return QObject::eventFilter(watched, event);
    const auto& wheel = static_cast<const QWheelEvent&>(*event);
    if (!(wheel.modifiers() & Qt::ControlModifier)) {
        m_turned = 0;
        return QObject::eventFilter(watched, event);
    }
    constexpr int notch = 120;
    for (m_turned += wheel.angleDelta().y(); std::abs(m_turned) >= notch;) {
        const int direction = m_turned > 0 ? 1 : -1;
        step(direction);
        m_turned -= direction * notch;
    }
    return true;
}

} // namespace quarvelle
