#!/usr/bin/env bash
# Builds the Windows program and its installer on Debian. Qt for Windows, which takes long, is built once and kept
# under build/, or in the folder that QUARVELLE_WINDOWS_QT names.
set -euo pipefail
cd "$(dirname "$0")/../.."

qt=$(packaging/windows/build-qt.sh "${QUARVELLE_WINDOWS_QT:-build/windows-qt}")
tree=build/windows/tree
cmake -S . -B "$tree" -G Ninja --toolchain packaging/windows/toolchain.cmake -DCMAKE_BUILD_TYPE=Release \
    -DBUILD_TESTING=OFF -DCMAKE_EXE_LINKER_FLAGS=-static -DCMAKE_FIND_ROOT_PATH="$qt" -DQT_HOST_PATH=/usr
cmake --build "$tree" --target quarvelle
cmake --install "$tree" --strip --prefix build/windows

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$tree/CMakeCache.txt")
makensis -V2 -DVERSION="$version" -DPROGRAM="$PWD/build/windows/quarvelle.exe" \
    -DICON="$PWD/$tree/app/quarvelle.ico" -DINSTALLER="$PWD/build/windows/quarvelle-$version-setup.exe" \
    packaging/windows/installer.nsi
ls -l build/windows/*.exe
