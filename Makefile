# Thin front over CMake: `make run` and `make test` are all a newcomer needs.
BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
CMAKE_FLAGS ?=
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
DOCUMENT ?=
FUZZ_SECONDS ?= 60

.PHONY: all deps configure build run test bench kill9 format clean fuzz screenshots demo package

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

# Writes a three-year sample career to build/demo/Demo.cv4 (anew each time) and starts Corvane on it.
demo: build
	@mkdir -p build/demo
	@rm -f build/demo/Demo.cv4 build/demo/Demo.cv4-journal
	@$(BUILD_DIR)/bench/corvane-genere --annees 3 --contrats 400 --manager build/demo/Demo.cv4
	@$(BUILD_DIR)/src/app/corvane "$(CURDIR)/build/demo/Demo.cv4"

test: build
	@cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# Writes the Debian package $(BUILD_DIR)/corvane_<version>_<arch>.deb (cmake/Paquet.cmake).
package: build
	@cd $(BUILD_DIR) && cpack -G DEB

bench: build
	@for b in $(BUILD_DIR)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

# Kills writes with SIGKILL at random moments and checks that Corvane reopens the document with every acknowledged record.
kill9: build
	@python3 bench/kill9.py --build $(BUILD_DIR)

# Fuzzes the CSV codec for FUZZ_SECONDS (clang's libFuzzer + AddressSanitizer); not part of `make test`.
# fuzz/corpus holds the seeds; the inputs found go to $(BUILD_DIR)-fuzz/corpus, a crash to $(BUILD_DIR)-fuzz/.
fuzz: deps
	@cmake -S fuzz -B $(BUILD_DIR)-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ >/dev/null
	@cmake --build $(BUILD_DIR)-fuzz -j $(JOBS)
	@mkdir -p $(BUILD_DIR)-fuzz/corpus
	@$(BUILD_DIR)-fuzz/fuzz_csv -max_total_time=$(FUZZ_SECONDS) -timeout=10 -dict=fuzz/csv.dict \
		-artifact_prefix=$(BUILD_DIR)-fuzz/ $(BUILD_DIR)-fuzz/corpus fuzz/corpus

# Saves pictures of the main window and of each section to docs/images/, drawn offscreen on a
# sample document, with a throwaway home so that the user's settings and documents are left alone.
screenshots: build
	@home=$$(mktemp -d) && trap 'rm -rf "$$home"' EXIT && \
	mkdir -p "$$home/Documents/Corvane" docs/images && \
	$(BUILD_DIR)/bench/corvane-genere --annees 3 --contrats 400 --fin 2026-11-21 --manager \
		"$$home/Documents/Corvane/Claire Martin.cv4" >/dev/null && \
	env HOME="$$home" XDG_CONFIG_HOME="$$home/.config" XDG_DATA_HOME="$$home/.local/share" \
		XDG_CACHE_HOME="$$home/.cache" XDG_STATE_HOME="$$home/.local/state" XDG_RUNTIME_DIR="$$home" \
		QT_QPA_PLATFORM=offscreen TZ=Europe/Paris LANG=C.UTF-8 CORVANE_CAPTURE="$(CURDIR)/docs/images" \
		$(BUILD_DIR)/src/app/corvane "$$home/Documents/Corvane/Claire Martin.cv4" && \
	echo "Captures enregistrées dans docs/images/"

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	@rm -rf $(BUILD_DIR) $(BUILD_DIR)-fuzz
