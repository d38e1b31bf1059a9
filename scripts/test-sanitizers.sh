#!/usr/bin/env bash
# On a fresh machine: installs the packages, builds a Debug build under
# AddressSanitizer and UndefinedBehaviorSanitizer into build-asan/, and runs
# every test through ctest. The first fault a sanitizer sees ends its test
# program with an error, so that ctest counts it as a failure.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh" --tests
build="${PLOUVARINE_ASAN_BUILD_DIR:-$root/build-asan}"
# ccache finds a compilation again from another checkout of the project (paths
# taken relative to the project's root).
export CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=true
flags="-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined"
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DPLOUVARINE_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="$flags" \
    -DCMAKE_SHARED_LINKER_FLAGS="$flags" -DCMAKE_MODULE_LINKER_FLAGS="$flags"
fi
cmake --build "$build" -j "$(nproc)"
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1"
export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
ctest --test-dir "$build" --output-on-failure -j "$(nproc)"
