#pragma once

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

int keyCode(const QKeyEvent& event);

} // namespace quarvelle
