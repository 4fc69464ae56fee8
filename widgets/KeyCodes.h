#pragma once

#include <Qt>

class QKeyEvent;

namespace quarvelle {

/// The key codes passed to handlers.
namespace KeyCode {
inline constexpr int none = 0; ///< a key with no meaning of its own, or an edit made without a key
inline constexpr int enter = 13;
inline constexpr int up = 38;
inline constexpr int down = 40;
inline constexpr int q = 81;
} // namespace KeyCode

/// The code of a key. Q held with Alt asks for a menu, and has none.
int keyCode(const QKeyEvent& event);

/// The key, as it is on a keyboard with Latin letters. Where the layout has other letters (Cyrillic, Greek,
/// Arabic, Hebrew), those letters that are commands are told by the place of the key: that of the US layout.
Qt::Key latinKey(const QKeyEvent& event);

} // namespace quarvelle
