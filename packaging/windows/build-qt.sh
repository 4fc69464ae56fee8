#!/usr/bin/env bash
# build-qt.sh FOLDER: builds Qt for Windows, static and small, from Debian's source package into a folder in
# FOLDER, unless it is there already, and names it on standard output. A build that was broken off goes on.
set -euo pipefail
windows=$(realpath "$(dirname "$0")")
mkdir -p "$1"
cd "$1"

# What the window and the native dialogs don't use. The print dialog can't be had without the calendar.
unused=(
    colordialog columnview concurrent datawidgetmapper dbus dial dockwidget errormessage fontcombobox fontdialog
    freetype gif graphicsview hijricalendar ico imageformat_ppm imageformat_xbm inputdialog islamiccivilcalendar
    jalalicalendar jpeg keysequenceedit lcdnumber mdiarea mimetype_database network pkg_config scroller
    splashscreen sql syntaxhighlighter systemtrayicon testlib textmarkdownreader textmarkdownwriter textodfwriter
    timezone toolbox undocommand vulkan wizard xml
)
# Does not compile with this compiler.
broken=(tabletevent)
options=(
    -DCMAKE_BUILD_TYPE=MinSizeRel
    -DBUILD_SHARED_LIBS=OFF
    -DINPUT_opengl=no
    -DQT_BUILD_EXAMPLES=OFF
    -DQT_BUILD_TESTS=OFF
)
for feature in "${unused[@]}" "${broken[@]}"; do
    options+=("-DFEATURE_$feature=OFF")
done

# The tools of the host's own Qt take part, so the version has to be theirs.
version=$(dpkg-query --show --showformat='${source:Version}' qt6-base-dev)
build=$version-$(echo "${options[@]}" | sha256sum | head -c 8)
if [ -f "$build/built" ]; then
    realpath "$build"
    exit
fi

# A list of package sources of its own leaves the system's as it is.
mkdir -p apt/sources apt/lists apt/cache
apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Created-By: Packages' 'Origin: Debian' 'Component: main' |
    sort --unique | sed 's|^|deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] |; s|$| main|' \
    >apt/sources/debian.list
from_sources=(-o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$PWD/apt/sources"
    -o "Dir::State::Lists=$PWD/apt/lists" -o "Dir::Cache=$PWD/apt/cache")
if [ ! -d "source-$version" ]; then
    apt-get "${from_sources[@]}" update >&2
    rm -rf unpacking
    mkdir unpacking
    (cd unpacking && apt-get "${from_sources[@]}" source --only-source "qt6-base=$version" >&2)
    mv unpacking/qt6-base-*/ "source-$version"
fi

# The style's own code does without the dialog; this line alone does not.
sed -i '/#include <qinputdialog.h>/d' "source-$version/src/plugins/styles/windowsvista/qwindowsvistastyle_p_p.h"

triplet=$(dpkg-architecture --query DEB_HOST_MULTIARCH)
cmake -S "source-$version" -B "$build/build" -G Ninja --toolchain "$windows/toolchain.cmake" "${options[@]}" \
    -DCMAKE_INSTALL_PREFIX="$PWD/$build" -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$triplet/cmake" >&2
cmake --build "$build/build" >&2
cmake --install "$build/build" >/dev/null
rm -rf apt unpacking "source-$version" "$build/build"
touch "$build/built"
realpath "$build"
