.PHONY: help run test demo

help: ## Say what there is to make
	@sed -n 's/^\([a-z-]*\):.*## /make \1\t/p' $(MAKEFILE_LIST)

run: ## Build Quarvelle and open its window
	@packaging/run.sh

test: ## Build the tests with the sanitizers and run them
	@packaging/install-packages.sh build test
	cmake --preset asan
	cmake --build --preset asan
	@ctest --preset asan --no-tests=error

demo: ## Play on a virtual display, checking all that is seen, and take pictures of it
	@packaging/demo/play.sh
