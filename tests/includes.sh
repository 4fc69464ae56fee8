#!/usr/bin/env bash
# Tells the includes that run down the table of folders, or between practice/ and print/, which stand side by side.
set -euo pipefail
cd "$(dirname "$0")/.."
for rule in "engine may not include widgets|board|ui|practice|print|app" "widgets may not include board|ui|practice|print|app" \
    "board may not include ui|practice|print|app" "ui may not include practice|print|app" \
    "practice may not include print|app" "print may not include practice|app"; do
    ! git grep -nE "^#include \"(${rule##* })/" -- "${rule%% *}" || found="$rule"
done
[[ -z ${found-} ]] || { echo "$found" >&2 && exit 1; }
