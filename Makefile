# What one does with this project. `make` alone explains; the work itself stands in CMake and in scripts/.

SHELL := /bin/bash
.SHELLFLAGS := -o pipefail -c
.DEFAULT_GOAL := help
MAKEFLAGS += --no-print-directory

build := build
example := examples/headphones.scenario
preferences := $(build)/preferences
prefix := /usr/local
jobs := $(shell nproc)

# Somebody who watches sees the build move; a log gets its mistakes only.
quiet := $(shell test -t 1 || echo --quiet)

.PHONY: help
help: ## explain the targets
	@echo "make TARGET, where TARGET is one of"
	@awk -F ':.*## ' '/^[a-z0-9-]+:.*## / { printf "  %-18s%s\n", $$1, $$2 }' $(MAKEFILE_LIST)

.PHONY: build
build: ## install what is missing and build the program: build/panotra
	@scripts/install-dependencies build
	@cmake --preset default $(if $(wildcard $(build)/CMakeCache.txt),,-DBUILD_TESTING=OFF) >/dev/null
	@$(if $(quiet),echo "Building: panotra")
	@cmake --build $(build) --parallel $(jobs) --target panotra panotra_resources -- $(quiet)

.PHONY: run
run: build ## build, and play a day in the life of the mixer
	@scripts/install-dependencies run
	@scripts/play-example $(build)/panotra $(example) $(preferences) $(build)/pictures

.PHONY: gallery
gallery: build ## draw all the mixer can look like, build/gallery/index.html, and docs/phones.png
	@cmake --build $(build) --parallel $(jobs) --target panotra-gallery -- $(quiet)
	@$(build)/panotra-gallery $(build)/gallery
	@cmake -E copy_if_different $(build)/gallery/phones.png docs/phones.png
	@echo "Open $(build)/gallery/index.html in a browser."

.PHONY: film
film: build ## make docs/tour.webp, the film of the README, anew
	@$(build)/panotra film examples/tour.scenario --output docs/tour.webp --captions --size 400x760 --force

.PHONY: window
window: build ## build, and open a phone to play with
	@$(build)/panotra window

.PHONY: test
test: ## build and run all tests, once more under the sanitizers; ALL=1: those too that passed and see no change
	@scripts/install-dependencies build test device
	@scripts/run-tests $(build) $(jobs) $(if $(ALL),all,changed) $(quiet)

.PHONY: quick
quick: ## between two edits: build and run the unit and scenario tests, once and without the rest
	@scripts/install-dependencies build test
	@cmake --preset default -DBUILD_TESTING=ON >/dev/null
	@cmake --build $(build) --parallel $(jobs) --target panotra_quick -- $(quiet)
	@ctest --test-dir $(build) --parallel $(jobs) --output-on-failure --tests-regex "^(unit_|scenario/|example/|systems/)" | grep -v -e "^ *Start " -e " Passed "

.PHONY: device
device: ## install what is missing, make the packages for a phone in build/device, and check it
	@scripts/install-dependencies build device
	@scripts/build-device $(build)/device

.PHONY: test-device-arm64
test-device-arm64: device ## play every scenario with the phone's own library, on an emulated processor
	@scripts/install-dependencies arm64
	@scripts/test-device-arm64 $(build) $(jobs) $(quiet)

.PHONY: lint
lint: ## read the sources and the scripts for mistakes: clang-tidy, cppcheck, gcc, shellcheck
	@scripts/install-dependencies build lint
	@scripts/lint $(build)/lint $(jobs)

.PHONY: mutants
mutants: ## plant one change at a time and see whether a test notices: MUTANTS=all, a number or survivors
	@scripts/install-dependencies build test mutants
	@scripts/mutants $(build) $(jobs) $${MUTANTS:-all} $${MUTANTS_SEED:-1} $(quiet)

.PHONY: install
install: build ## install the programs, their manual and the rest below prefix=/usr/local, or below DESTDIR
	@cmake --build $(build) --parallel $(jobs) --target panotra_installed -- $(quiet)
	@DESTDIR=$(DESTDIR) cmake --install $(build) --prefix $(prefix) --component desk

.PHONY: deb
deb: build ## make the Debian package of the programs in build/deb, and check it
	@scripts/install-dependencies deb
	@cmake --build $(build) --parallel $(jobs) --target panotra_installed -- $(quiet)
	@cpack --config $(build)/DeskPackage.cmake
	@lintian --fail-on error,warning --allow-root $(build)/deb/panotra_*.deb

.PHONY: coverage
coverage: ## which lines and branches of the logic and the phone's backend the tests reach
	@scripts/install-dependencies build test coverage
	@scripts/coverage $(build) $(jobs) $(quiet)

.PHONY: fuzz
fuzz: ## feed the program anything, each fuzzer for FUZZ_SECONDS=60
	@scripts/install-dependencies build test fuzz
	@scripts/fuzz $(build) $(jobs) $(quiet)

.PHONY: interleavings
interleavings: ## look at every order of what races in real use, as deep as INTERLEAVING_SECONDS=600 allow
	@scripts/install-dependencies build test
	@cmake --preset default -DBUILD_TESTING=ON >/dev/null
	@cmake --build $(build) --parallel $(jobs) --target interleavings -- $(quiet)
	@$(build)/tests/interleavings/interleavings --seconds $${INTERLEAVING_SECONDS:-600}

.PHONY: endurance
endurance: build ## live a year with the mixer, and do anything to the window for WINDOW_SECONDS=600
	@scripts/install-dependencies build test
	@cmake --preset default -DBUILD_TESTING=ON >/dev/null
	@cmake --build $(build) --parallel $(jobs) --target endurance -- $(quiet)
	@$(build)/tests/endurance/endurance
	@tests/endurance/window_endurance.sh $(build)/panotra $${WINDOW_SECONDS:-600}

.PHONY: faults
faults: ## let files be damaged, system calls fail and processes die, FAULT_ROUNDS=1000 times at random moments
	@scripts/install-dependencies build test
	@cmake --preset default -DBUILD_TESTING=ON >/dev/null
	@cmake --build $(build) --parallel $(jobs) --target fault_tests -- $(quiet)
	@FAULT_ROUNDS=$${FAULT_ROUNDS:-1000} $(build)/tests/faults/fault_tests --gtest_brief=1

.PHONY: bench
bench: build ## measure: instructions of the logic, time of saves, scenarios and pictures
	@scripts/install-dependencies test bench
	@cmake --preset default -DBUILD_TESTING=ON >/dev/null
	@cmake --build $(build) --parallel $(jobs) --target instructions panotra-objc objc_tests panotra render_bench stores -- $(quiet)
	@bench/count-instructions $(build)
	@$(build)/bench/stores $(build)/bench/kept
	@bench/scenario-growth $(build)/panotra
	@$(build)/render_bench

.PHONY: format
format: ## format all sources
	@scripts/install-dependencies test
	@. tests/checks/rooms.sh && sources . | xargs clang-format-14 -i

.PHONY: dist
dist: ## the sources that are committed as an archive, build/panotra-VERSION.tar.xz
	@scripts/install-dependencies dist
	@scripts/make-dist $(build)

.PHONY: clean
clean: ## remove everything that was built, remembered levels included
	@cmake -E rm -rf $(build)
