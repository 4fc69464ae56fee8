#!/usr/bin/env bash
# Builds the Debian package from the checkout's files. The same files give the same package wherever they are.
set -euo pipefail
cd "$(dirname "$0")/../.."

SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export SOURCE_DATE_EPOCH
umask 022
# Debug information would be stripped from the program, but not from the sum that identifies the build.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g
eval "$(dpkg-buildflags --export=sh)"
# An assertion would carry the folder's name into the program, wherever a space in it defeats the flag against that.
CXXFLAGS="$CXXFLAGS $CPPFLAGS -DNDEBUG"
cmake --fresh --preset package
cmake --build --preset package
cpack --config build/package/CPackConfig.cmake -B build/package
