# The commands of the README. CMake does the work; see CMakePresets.json for the other builds.
PRESET ?= release
JOBS ?= $(shell getconf _NPROCESSORS_ONLN)
DEMO_DIR ?= build/demo
SOURCES = $(shell git ls-files 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'bench/*.h' 'examples/*.cpp')

.PHONY: all demo test bench editor format lint dependencies clean

all: dependencies
	cmake --preset $(PRESET)
	cmake --build --preset $(PRESET) -j $(JOBS)

dependencies:
	@scripts/install-dependencies

demo: dependencies
	cmake --preset release -D VESK_BUILD_TESTS=OFF
	cmake --build --preset release -j $(JOBS) --target veskhdr sample_bracket
	@scripts/demo build $(DEMO_DIR)

test: dependencies
	cmake --preset $(PRESET) -D VESK_BUILD_TESTS=ON
	cmake --build --preset $(PRESET) -j $(JOBS)
	ctest --preset $(PRESET) -j $(JOBS)

bench: dependencies
	cmake --preset bench
	cmake --build --preset bench -j $(JOBS)
	@scripts/bench build/bench

editor: dependencies
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target vesk
	build/bin/vesk

format:
	clang-format -i $(SOURCES)

lint:
	@scripts/lint build $(SOURCES)

clean:
	cmake -E rm -rf build
