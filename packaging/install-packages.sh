#!/usr/bin/env bash
# Installs what is missing of the groups of packages.txt that are named.
set -euo pipefail
cd "$(dirname "$0")"

missing=()
for group in "$@"; do
    for package in $(sed -n "s/^$group //p" packages.txt); do
        state=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null) || true
        [ "$state" = installed ] || missing+=("$package")
    done
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    echo "These packages are missing; sudo may ask for your password to install them: ${missing[*]}"
    as_root=(sudo)
fi
# A source of somebody else's may be gone, or a mirror be in the middle of a change; what is needed may be on
# the other lists, and apt-get install says so where it isn't.
"${as_root[@]}" apt-get update || echo "Not all lists of packages could be fetched; going on with those there are."
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends "${missing[@]}"
