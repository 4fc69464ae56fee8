#include "ui/EntryBox.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "engine/Numbers.h"
#include "ui/KeyCodes.h"

namespace quarvelle {

EntryBox::EntryBox(QWidget* parent) : QLineEdit(parent), m_typedLimit(maxLength()) {
    connect(this, &QLineEdit::textEdited, this, [this] {
        m_editUntold = true;
        allow(text().size());
        if (!m_handlesKey)
            tellEdit();
    });
}

void EntryBox::setTypedLimit(int characters) {
    m_typedLimit = characters;
    allow(text().size());
}

void EntryBox::setProgramText(const std::string& newText) {
    const QString text = QString::fromStdString(newText);
    allow(text.size());
    setText(text);
    m_editUntold = false;
}

double EntryBox::number() const {
    return leadingNumber(text().toStdString());
}

/// Lets the box hold that many characters, and no fewer than may be typed.
void EntryBox::allow(qsizetype characters) {
    const int limit = std::max(m_typedLimit, static_cast<int>(characters));
    // Setting even the same limit moves the cursor and forgets what could be undone.
    if (limit == maxLength())
        return;
    const int cursor = cursorPosition();
    setMaxLength(limit);
    setCursorPosition(cursor);
}

void EntryBox::tellEdit() {
    m_editUntold = false;
    emit keyReleased(KeyCode::none);
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    const QScopedValueRollback handling(m_handlesKey, true);
    if (!event->isAutoRepeat())
        emit keyPressed(keyCode(*event));
    QLineEdit::keyPressEvent(event);
}

void EntryBox::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    if (event->isAutoRepeat())
        return;
    m_editUntold = false;
    emit keyReleased(keyCode(*event));
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (m_editUntold)
        tellEdit();
}

} // namespace quarvelle
