#pragma once

#include <QObject>

class QScrollArea;

namespace quarvelle {

class PageScale;

/// Chooses the factor of the pages: the largest at which a whole page fits into the client area, unless the
/// person has chosen another. Theirs holds until they ask for the fitting one again, or the program ends.
class Zoom : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of `client`, which shows the pages.
    Zoom(QScrollArea& client, PageScale& scale);

    void in() { step(1); }
    void out() { step(-1); }
    void fit();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void step(int direction);
    void show(double factor);

    QScrollArea& m_client;
    PageScale& m_scale;
    bool m_fits = true;
    int m_turned = 0; ///< of the wheel since the last step, in eighths of a degree
};

} // namespace quarvelle
