#!/usr/bin/env bash
# Tells which includes don't run up the table of folders: from a folder to one below it, or between practice/ and print/,
# which stand side by side.
set -euo pipefail
cd "$(dirname "$0")/.."
wrong=0
below="practice print app"
for folder in ui board widgets engine; do
    git grep -nE "^#include \"(${below// /|})/" -- "$folder" && wrong=1
    below="$folder $below"
done
git grep -nE '^#include "(print|app)/' -- practice && wrong=1
git grep -nE '^#include "(practice|app)/' -- print && wrong=1
((wrong == 0)) || echo "These includes run down the table of folders, or across it." >&2
exit $wrong
