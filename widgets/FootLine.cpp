#include "widgets/FootLine.h"

#include <QApplication>
#include <QKeyEvent>
#include <QProgressBar>
#include <QTimerEvent>

namespace quarvelle {

namespace {

/// Whether the person has just done something. The repeats of a key held down don't count: the message may be
/// the answer to that very key.
bool isDoing(const QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        return !static_cast<const QKeyEvent&>(event).isAutoRepeat();
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
        return true;
    default:
        return false;
    }
}

} // namespace

FootLine::FootLine(QWidget& parent) : QStatusBar(&parent), m_bar(*new QProgressBar) {
    setAutoFillBackground(true);
    hide();
    parent.installEventFilter(this);
    connect(this, &QStatusBar::messageChanged, this, &FootLine::appear);
    setSizeGripEnabled(false);
    m_bar.setFormat("%v of %m sheets");
    m_bar.hide();
    addWidget(&m_bar, 1);
}

/// Shows the line if it has something to show, and hides it otherwise.
void FootLine::appear() {
    const QSize room = parentWidget()->size();
    const int height = sizeHint().height();
    setGeometry(0, room.height() - height, room.width(), height);
    setVisible(!currentMessage().isEmpty() || !m_bar.isHidden());
    raise();
}

void FootLine::say(const QString& text) {
    showMessage(text);
    qApp->installEventFilter(this);
}

int FootLine::messageRoom() const {
    // A status bar writes its messages with this much on either side.
    constexpr int inset = 6;
    return parentWidget()->width() - 2 * inset;
}

void FootLine::beginSheets(int sheets) {
    constexpr int milliseconds = 1000;
    m_bar.setRange(0, sheets);
    m_bar.setValue(0);
    m_patience.start(milliseconds, this);
}

void FootLine::showDone(int sheets) {
    m_bar.setValue(sheets);
}

void FootLine::endSheets() {
    m_patience.stop();
    m_bar.hide();
    appear();
}

bool FootLine::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        appear();
    if (isDoing(*event)) {
        qApp->removeEventFilter(this);
        clearMessage();
    }
    return QStatusBar::eventFilter(watched, event);
}

void FootLine::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_patience.timerId()) {
        QStatusBar::timerEvent(event);
        return;
    }
    m_patience.stop();
    m_bar.show();
    appear();
}

} // namespace quarvelle
