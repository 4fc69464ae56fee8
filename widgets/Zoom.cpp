#include "widgets/Zoom.h"

#include <algorithm>

#include "widgets/PageScale.h"

namespace quarvelle {

namespace {

/// Steps look alike when each enlarges by the same share.
constexpr double step = 1.25;

double clamped(double factor) {
    return std::clamp(factor, PageScale::least, PageScale::most);
}

} // namespace

void Zoom::in() {
    m_chosen = clamped(m_scale.factor() * step);
}

void Zoom::out() {
    m_chosen = clamped(m_scale.factor() / step);
}

double Zoom::fitting(QSizeF client, int footRoom) const {
    const QSizeF whole = m_scale.wholeSize();
    const double height = client.height() - (m_fitting.aboveFoot ? footRoom : 0);
    const double factor = std::min(client.width() / whole.width(), height / whole.height());
    return m_fitting.leastHeight > 0 ? std::min(factor, client.height() / m_fitting.leastHeight) : factor;
}

void Zoom::follow(QSize client, int footRoom) {
    const double factor = clamped(m_chosen.value_or(fitting(client, footRoom)));
    if (factor != m_scale.factor())
        m_scale.setFactor(factor);
}

} // namespace quarvelle
