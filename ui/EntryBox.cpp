#include "ui/EntryBox.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "engine/Numbers.h"
#include "ui/KeyCodes.h"

namespace quarvelle {

EntryBox::EntryBox(QWidget* parent) : QLineEdit(parent), m_typedLimit(maxLength()) {
    connect(this, &QLineEdit::textEdited, this, [this] {
        makeRoom();
        if (!m_handlesKey)
            emit keyReleased(KeyCode::none);
    });
}

void EntryBox::setTypedLimit(int characters) {
    m_typedLimit = characters;
    makeRoom();
}

void EntryBox::setProgramText(const std::string& newText) {
    const QString text = QString::fromStdString(newText);
    setMaxLength(std::max(m_typedLimit, static_cast<int>(text.size())));
    setText(text);
}

double EntryBox::number() const {
    return leadingNumber(text().toStdString());
}

void EntryBox::makeRoom() {
    setMaxLength(std::max(m_typedLimit, static_cast<int>(text().size())));
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    const QScopedValueRollback handling(m_handlesKey, true);
    if (!event->isAutoRepeat())
        emit keyPressed(keyCode(*event));
    QLineEdit::keyPressEvent(event);
}

void EntryBox::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        emit keyReleased(keyCode(*event));
}

} // namespace quarvelle
