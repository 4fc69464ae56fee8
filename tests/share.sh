#!/usr/bin/env bash
# Tells how many of all lines of code are tests, without blank lines and comments. More than a third is too much to keep
# up, less than a quarter leaves too much unseen.
set -euo pipefail
cd "$(dirname "$0")/.."
code=('*.cpp' '*.h' '*.py' '*.sh' .ci/run)
lines() {
    git ls-files -z "$@" | xargs -0 grep -hvE '^\s*(//.*|#([^i].*)?)?$' | wc -l
}
tests=$(lines "${code[@]/#/tests/}")
all=$(lines "${code[@]}")
share=$((1000 * tests / all))
echo "Tests: $tests of $all lines of code, $((share / 10)).$((share % 10)) in 100; 25 to 33 are right."
((share >= 250 && share <= 330))
