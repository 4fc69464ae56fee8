#include "widgets/KeyCodes.h"

#include <QKeyEvent>

namespace quarvelle {

int keyCode(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyCode::enter;
    case Qt::Key_Up:
        return KeyCode::up;
    case Qt::Key_Down:
        return KeyCode::down;
    case Qt::Key_Q:
        return KeyCode::q;
    default:
        return KeyCode::none;
    }
}

} // namespace quarvelle
