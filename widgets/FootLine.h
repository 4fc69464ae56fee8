#pragma once

#include <QBasicTimer>
#include <QStatusBar>

class QProgressBar;

namespace quarvelle {

/// The line at the foot of the window, which shows messages and the progress of long work. It covers the
/// lower edge of the page, and only while it has something to show, so the page never moves or changes its
/// size.
class FootLine : public QStatusBar {
    Q_OBJECT

public:
    /// Becomes a child of `parent`, along its lower edge.
    explicit FootLine(QWidget& parent);

    /// Shows `text` until the person next presses a key or a mouse button, turns the wheel or touches the
    /// screen.
    void say(const QString& text);

    /// How wide a message may be, in pixels.
    int messageRoom() const;

    /// Work on that many sheets begins. After one second a bar shows how many of them are done.
    void beginSheets(int sheets);
    void showDone(int sheets);
    /// The work has ended: takes the bar away.
    void endSheets();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void appear();

    QProgressBar& m_bar;
    QBasicTimer m_patience;
};

} // namespace quarvelle
