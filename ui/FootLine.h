#pragma once

#include <QBasicTimer>
#include <QStatusBar>

class QProgressBar;

namespace quarvelle {

/// The line at the window's foot: says what has happened, and how far long work has come. It keeps its height
/// with and without either, so that the pages above it never move.
class FootLine : public QStatusBar {
    Q_OBJECT

public:
    explicit FootLine(QWidget* parent = nullptr);

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
    QProgressBar& m_bar;
    QBasicTimer m_patience;
};

} // namespace quarvelle
