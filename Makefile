.PHONY: help run package package-check windows windows-check test demo robot bench print-check lint

help: ## Say what there is to make
	@sed -n 's/^\([a-z-]*\):.*## /make \1\t/p' $(MAKEFILE_LIST)

run: ## Build Quarvelle and open its window
	@packaging/run.sh

package: ## Make the Debian package
	@packaging/install-packages.sh build package
	packaging/debian/build.sh

package-check: package ## Validate the Debian package, build it again, install it in a bare system and remove it
	@packaging/install-packages.sh demo package-check
	@# Only root may make a root.
	@$$([ "$$(id -u)" -eq 0 ] || echo sudo) /usr/bin/python3 -B tests/acceptance/package_check.py build/package/quarvelle_*.deb build/package-check

windows: ## Make the Windows program and its installer
	@packaging/install-packages.sh build windows
	packaging/windows/build.sh

windows-check: windows ## Install the Windows program under Wine, use it and remove it, and run the engine's tests there
	@packaging/install-packages.sh demo print-check windows-check
	cmake build/windows/tree -DBUILD_TESTING=ON
	cmake --build build/windows/tree --target engine_tests puzzle_tests
	@/usr/bin/python3 -Bu tests/acceptance/windows_check.py build/windows build/windows-check

test: ## Build the tests with the sanitizers and run them
	@packaging/install-packages.sh build test
	cmake --preset asan
	cmake --build --preset asan
	@ctest --preset asan --no-tests=error

demo: ## Play on a virtual display, checking all that is seen, and take pictures of it
	@packaging/install-packages.sh build demo
	cmake --preset release
	cmake --build --preset release --target quarvelle
	@/usr/bin/python3 -B tests/acceptance/demo.py build/release/app/quarvelle build/demo

STEPS = 1000000
SEED = 7

robot: ## Let a robot use the window for STEPS steps from SEED on, under the sanitizers
	@packaging/install-packages.sh build test
	cmake --preset asan
	cmake --build --preset asan --target window_tests
	@ROBOT_STEPS=$(STEPS) ROBOT_SEED=$(SEED) LSAN_OPTIONS=suppressions=tests/support/leaks.supp:print_suppressions=0 build/asan/tests/window_tests --gtest_brief=1 --gtest_filter=Robot.FindsNothing

bench: ## Measure the engine against a literal one, as comma-separated values
	@packaging/install-packages.sh build >&2
	@cmake --preset bench >&2
	@cmake --build --preset bench >&2
	@build/bench/bench/quarvelle_bench

print-check: ## Print batches on a print queue of its own and into files, and check every sheet
	@packaging/install-packages.sh build demo print-check
	cmake --preset release
	cmake --build --preset release --target quarvelle
	@/usr/bin/python3 -B tests/acceptance/print_check.py build/release/app/quarvelle build/print-check

lint: ## Check the layout and the pitfalls of the code, and how much of it is tests
	@packaging/install-packages.sh build test lint
	@tests/share.sh
	@tests/includes.sh
	cmake --preset dev
	cmake --build --preset dev
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
	git ls-files 'engine/*.cpp' 'widgets/*.cpp' 'board/*.cpp' 'ui/*.cpp' 'practice/*.cpp' 'print/*.cpp' 'app/*.cpp' | xargs -n 4 -P 2 clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p build/dev
