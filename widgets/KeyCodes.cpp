#include "widgets/KeyCodes.h"

#include <QKeyEvent>
#include <array>

namespace quarvelle {

namespace {

struct KeyPlace {
    quint32 place; ///< what the system calls the key
    Qt::Key letter;
};

#ifdef Q_OS_WINDOWS
/// Windows names keys by their Latin letters in every layout.
quint32 placeOf(const QKeyEvent& event) {
    return event.nativeVirtualKey();
}
constexpr std::array<KeyPlace, 4> letterKeys{
    {{'L', Qt::Key_L}, {'N', Qt::Key_N}, {'Q', Qt::Key_Q}, {'R', Qt::Key_R}}};
#else
/// The numbers of X11, which Wayland has taken over.
quint32 placeOf(const QKeyEvent& event) {
    return event.nativeScanCode();
}
constexpr std::array<KeyPlace, 4> letterKeys{
    {{46, Qt::Key_L}, {57, Qt::Key_N}, {24, Qt::Key_Q}, {27, Qt::Key_R}}};
#endif

/// Whether a layout with letters of its own has that on a key that is Latin elsewhere. Greek and Hebrew have
/// a semicolon and a slash where Q would be.
bool isForeign(int key) {
    constexpr int lastLatin = 0xFF;
    constexpr int firstWithoutCharacter = 0x01000000;
    return (key > lastLatin && key < firstWithoutCharacter) || key == Qt::Key_Semicolon ||
           key == Qt::Key_Slash;
}

} // namespace

int keyCode(const QKeyEvent& event) {
    switch (latinKey(event)) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyCode::enter;
    case Qt::Key_Up:
        return KeyCode::up;
    case Qt::Key_Down:
        return KeyCode::down;
    case Qt::Key_Q:
        return event.modifiers() & Qt::AltModifier ? KeyCode::none : KeyCode::q;
    default:
        return KeyCode::none;
    }
}

Qt::Key latinKey(const QKeyEvent& event) {
    if (isForeign(event.key()))
        for (const KeyPlace& key : letterKeys)
            if (key.place == placeOf(event))
                return key.letter;
    return static_cast<Qt::Key>(event.key());
}

} // namespace quarvelle
