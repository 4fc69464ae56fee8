#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace quarvelle::testing {

/// Presses and releases keys where a person's would go: the open menu, or what has the focus in the window.
inline void pressKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers = {},
                     const QString& text = {}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget* receiver = QApplication::activePopupWidget();
        if (!receiver)
            receiver = window.focusWidget() ? window.focusWidget() : &window;
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(receiver, &event);
    }
}

inline void typeText(QWidget& window, const QString& text) {
    for (const QChar character : text)
        pressKey(window, character.toUpper().unicode(), {}, character);
}

} // namespace quarvelle::testing
