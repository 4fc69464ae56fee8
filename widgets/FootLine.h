#pragma once

#include <QBasicTimer>
#include <QStatusBar>

class QProgressBar;

namespace quarvelle {

/// The line at the window's foot: says what has happened, and how far long work has come. It lies over the
/// pages and is there only while it has something to say, so it neither takes room from them nor moves them.
class FootLine : public QStatusBar {
    Q_OBJECT

public:
    /// Lies along the lower edge of `parent`.
    explicit FootLine(QWidget& parent);

    /// Says `text` until the next thing that the person does, with whatever they do it.
    void say(const QString& text);

    /// Work on that many sheets begins. A bar shows how many are done once the work has taken a second.
    void beginSheets(int sheets);
    void showDone(int sheets);
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
