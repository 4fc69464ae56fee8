#include "widgets/EntryBox.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <algorithm>

#include "engine/Numbers.h"
#include "widgets/KeyCodes.h"

namespace quarvelle {

EntryBox::EntryBox(QWidget* parent) : QLineEdit(parent), m_typedLimit(maxLength()) {
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!m_takesProgramText && !isEnabled()) {
            // Assistive technology can write into boxes that nobody can use.
            setProgramText(m_lastText.toStdString());
            return;
        }
        m_lastText = text();
        if (m_takesProgramText)
            return;
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
    const QScopedValueRollback taking(m_takesProgramText, true);
    allow(text.size());
    setText(text);
    if (!hasFocus())
        setCursorPosition(0);
    m_editUntold = false;
}

double EntryBox::number() const {
    return leadingNumber(text().toStdString());
}

/// Lets the box hold that many characters, or as many as may be typed if that is more.
void EntryBox::allow(qsizetype characters) {
    const int limit = std::max(m_typedLimit, static_cast<int>(characters));
    // Qt moves the cursor and drops the undo history even when the limit stays the same.
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

bool EntryBox::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && !showsWholeText()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QLineEdit::event(event);
}

bool EntryBox::showsWholeText() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    // QLineEdit keeps two pixels free at each end, and one for the cursor.
    const int room = contents.marginsRemoved(textMargins()).width() - 5;
    return fontMetrics().horizontalAdvance(text()) <= room;
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    if ((event->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier &&
        !event->text().isEmpty()) {
        event->ignore();
        return;
    }
    setCursor(Qt::BlankCursor);
    const QScopedValueRollback handling(m_handlesKey, true);
    QLineEdit::keyPressEvent(event);
    // If the box didn't accept them, they would scroll the page.
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        event->accept();
}

void EntryBox::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    if (event->isAutoRepeat())
        return;
    m_editUntold = false;
    emit keyReleased(keyCode(*event));
}

void EntryBox::mouseMoveEvent(QMouseEvent* event) {
    setCursor(Qt::IBeamCursor);
    QLineEdit::mouseMoveEvent(event);
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // A menu may act on the selection, and after another window the person goes on where they were.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason &&
        event->reason() != Qt::ActiveWindowFocusReason)
        setCursorPosition(0);
    if (m_editUntold)
        tellEdit();
}

} // namespace quarvelle
