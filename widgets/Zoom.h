#pragma once

#include <QSize>
#include <optional>

namespace quarvelle {

class PageScale;

/// Chooses the factor of the pages of a scale: the largest at which they fit into the client area, unless the
/// person has chosen another. Theirs holds until they ask for the fitting one again, or the program ends.
class Zoom {
public:
    /// How pages fit.
    struct Fitting {
        bool aboveFoot = false; ///< only above the line at the foot of the area
        int leastHeight = 0;    ///< the area is always to be at least that high, in pixels at 100 %
    };

    /// `scale` outlives the object.
    Zoom(PageScale& scale, Fitting fitting) : m_scale(scale), m_fitting(fitting) {}

    PageScale& scale() const { return m_scale; }
    bool keepsOffFoot() const { return m_fitting.aboveFoot; }

    /// The area's size is `client`, of whose height the line at its foot takes `footRoom`; in pixels.
    void follow(QSize client, int footRoom);

    // Each holds from the next time that the area is followed.
    void in();
    void out();
    void fit() { m_chosen.reset(); }

private:
    double fitting(QSizeF client, int footRoom) const;

    PageScale& m_scale;
    Fitting m_fitting;
    std::optional<double> m_chosen;
};

} // namespace quarvelle
