#!/usr/bin/env bash
# Builds the program and opens its window; without a display, lets it show itself on a virtual one.
set -euo pipefail
cd "$(dirname "$0")/.."

has_x_display() {
    [ -n "${DISPLAY:-}" ] && xdotool getdisplaygeometry >/dev/null 2>&1
}

has_wayland_display() {
    local socket=${WAYLAND_DISPLAY:-}
    [[ $socket = /* ]] || socket=${XDG_RUNTIME_DIR:-}/$socket
    [ -n "${WAYLAND_DISPLAY:-}" ] && [ -S "$socket" ]
}

packaging/install-packages.sh build window
if has_x_display; then
    platform=xcb
elif has_wayland_display; then
    platform=wayland
    packaging/install-packages.sh wayland
else
    echo "There is no display here: neither DISPLAY nor WAYLAND_DISPLAY leads to one."
    echo "The program is played on a virtual display instead, which takes pictures of it."
    exec make --no-print-directory demo
fi
cmake --preset release
cmake --build --preset release --target quarvelle
QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-$platform} exec build/release/app/quarvelle
