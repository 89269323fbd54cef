# Thin front over CMake: `make run` and `make test` are all a newcomer needs.
BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
CMAKE_FLAGS ?=
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
DOCUMENT ?=

.PHONY: all deps configure build run test bench format screenshots clean

all: build

deps:
	@./scripts/install-deps

configure: deps
	@cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS)

# Starts Corvane on the given document, or on the default one.
run: build
	@$(BUILD_DIR)/src/app/corvane $(DOCUMENT)

test: build
	@cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: build
	@for b in $(BUILD_DIR)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	@rm -rf $(BUILD_DIR) $(BUILD_DIR)-fuzz
