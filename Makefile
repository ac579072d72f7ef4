# Thin front for CMake; see README.md.
#   make run    sets up, builds, starts the program (without a display: plays the demonstration)
#   make test   sets up, builds, runs every test
#   make bench  prints figures and ratios          make fuzz    long run of the fuzz tests
#   make format rewrites the sources' layout       make tidy    static checks
.PHONY: run test bench fuzz build setup format check-format tidy clean

SOURCES = $(shell git ls-files '*.cpp' '*.h')

run: build
	@outils/lancer.sh

test: build
	@cd build && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j2

bench: build
	@outils/mesurer.sh

fuzz: build
	@outils/fuzz.sh

build: setup
	@test -f build/build.ninja || cmake --preset release
	@cmake --build build

setup:
	@outils/preparer.sh

format:
	clang-format -i $(SOURCES)

check-format:
	@clang-format --dry-run -Werror $(SOURCES)

tidy: build
	@outils/analyser.sh

clean:
	rm -rf build build-asan
