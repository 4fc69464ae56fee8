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
echo "Tests: $tests of $all lines of code, $((100 * tests / all)) in 100; 25 to 33 are right."
((tests * 100 / all >= 25 && tests * 100 / all <= 33))
