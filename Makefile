# Everything that a developer types, one word each. CMakePresets.json says what the words mean.
JOBS ?= $(shell nproc)
SOURCES = $(shell git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp' '*.mm')

.PHONY: build test asan tsan cover fuzz bench bench-desktop format lint check layers macos package

build: ; @tools/preset release
test: build ; @tools/setup run test && ctest --preset release
asan: ; @tools/preset asan && ctest --preset asan
tsan: ; @tools/preset tsan && ctest --preset tsan
cover: ; @tools/preset cover && ctest --preset cover && tools/coverage
fuzz: ; @tools/preset fuzz && tools/fuzz 60
bench: build ; @tools/bench
bench-desktop: ; @tools/bench-desktop
layers: ; @tools/layers
macos: ; @tools/check-macos
format: ; @tools/setup develop && clang-format-19 -i $(SOURCES)
lint: ; @tools/lint
package: ; @tools/package
check: layers lint test asan tsan macos
