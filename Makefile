# The whole set-up on a fresh Debian machine: `make run` or `make test`.
.PHONY: deps build run test sanitize bench fuzz clean

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

clean:
	rm -rf build build-release build-sanitize build-fuzz
