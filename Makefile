# The whole set-up on a fresh Debian machine: `make run` or `make test`.
.PHONY: deps build run test sanitize bench fuzz install clean

deps:
	scripts/install-deps

build: deps
	cmake --preset debug
	cmake --build --preset debug

run: build
	./build/kovra

# Every test of the Debug build, then the platform-free tests again under ASan + UBSan.
test: build
	ctest --preset debug
	$(MAKE) sanitize

sanitize: deps
	cmake --preset sanitize
	cmake --build --preset sanitize
	ctest --preset sanitize

bench: deps
	cmake --preset release
	cmake --build --preset release
	scripts/run-benchmarks build-release/bench

# The libFuzzer target of the document reader, built with clang.
fuzz:
	scripts/install-deps --fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz

# A release build installed under PREFIX: bin/, share/kovra/, the desktop entry, icon and MIME type.
PREFIX ?= /usr/local
install: deps
	cmake -S . -B build-install -G Ninja -DCMAKE_BUILD_TYPE=Release -DKOVRA_TESTS=OFF \
		-DCMAKE_INSTALL_PREFIX="$(PREFIX)"
	cmake --build build-install
	cmake --install build-install
	-update-mime-database "$(PREFIX)/share/mime"
	-update-desktop-database "$(PREFIX)/share/applications"

clean:
	rm -rf build build-release build-sanitize build-fuzz build-install
