#!/usr/bin/env bash
# Tells how many of all lines of code are tests, without blank lines and comments. More than a third is too much to keep
# up, less than a quarter leaves too much unseen.
set -euo pipefail
cd "$(dirname "$0")/.."
lines() {
    git ls-files -z "$1*.cpp" "$1*.h" "$1*.py" "$1*.sh" "$1.ci/run" | xargs -0 grep -hvE '^\s*(//.*|#([^i].*)?)?$' | wc -l
}
tests=$(lines tests/)
all=$(lines "")
echo "Tests: $tests of $all lines of code, $((100 * tests / all)).$((1000 * tests / all % 10)) in 100; 25 to 33 are right."
((tests * 100 / all >= 25 && tests * 100 / all <= 33))
