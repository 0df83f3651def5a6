#!/usr/bin/env bash
# Set-up and build on a fresh Debian 12 machine.
#   ./bootstrap.sh example   build, then run the sample application
#   ./bootstrap.sh test      build, then run every test
#   ./bootstrap.sh sanitize  build everything with AddressSanitizer and
#                            UndefinedBehaviorSanitizer (own folder), run every test
#   ./bootstrap.sh format    check that the code keeps to .clang-format
#   ./bootstrap.sh bench     build the benchmarks and run them
# Missing Debian packages are installed first (needs root or sudo); a machine
# that has them all is left alone. BUILD_DIR chooses the build folder.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
build="${BUILD_DIR:-$here/build}"
what="${1:-test}"
jobs="$(nproc 2>/dev/null || echo 2)"

# The widgets are drawn (tests, gallery) with DejaVu, so pictures look alike everywhere.
# lupdate and lrelease keep and compile the translations; Qt's own French
# texts (standard buttons) come from qt6-translations-l10n.
packages=(cmake make g++ pkg-config qt6-base-dev qt6-base-dev-tools libgl-dev
          libtinyxml-dev libsodium-dev fonts-dejavu-core
          qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-translations-l10n)
[ "$what" = bench ] && packages+=(libbenchmark-dev libssl-dev)
# The network tests make a throwaway certificate and run a real web server of
# their own on the loopback address.
# The wheel tests deliver a turn through Qt's window-system entry point
# (qt6-base-private-dev), the only way an ignored turn reaches the page.
case "$what" in test | sanitize) packages+=(openssl nginx-light qt6-base-private-dev) ;; esac
[ "$what" = format ] && packages=(clang-format git)
[ "$what" = sanitize ] && build="${BUILD_DIR:-$here/build-sanitize}"

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ "${#missing[@]}" -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    # A package with a service (nginx) must not start it: the tests start
    # their own, on the loopback address only. policy-rc.d tells the package
    # scripts so, for this install alone.
    policy=/usr/sbin/policy-rc.d
    if [ ! -e "$policy" ]; then
        printf '#!/bin/sh\nexit 101\n' | $sudo tee "$policy" >/dev/null
        $sudo chmod +x "$policy"
        trap '$sudo rm -f "$policy"' EXIT
    fi
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
    if trap -p EXIT | grep -q policy; then $sudo rm -f "$policy"; trap - EXIT; fi
fi

configure() {
    cmake -S "$here" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
}

case "$what" in
example)
    configure -DBUILD_TESTING=OFF -DBUILD_EXAMPLES=ON
    cmake --build "$build" --target bedrock-sample -j "$jobs"
    QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}" "$build/examples/bedrock-sample"
    ;;
test)
    configure -DBUILD_TESTING=ON -DBUILD_EXAMPLES=ON
    cmake --build "$build" -j "$jobs"
    ctest --test-dir "$build" --output-on-failure -j "$jobs"
    ;;
sanitize)
    # Leaks are reported too; third-party leaks that are not ours are listed
    # in the suppression file. Any report fails the test that caused it.
    flags="-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
    configure -DBUILD_TESTING=ON -DBUILD_EXAMPLES=ON \
        -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
        -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined"
    cmake --build "$build" -j "$jobs"
    export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0:strict_string_checks=1:detect_stack_use_after_return=1"
    export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
    export LSAN_OPTIONS="suppressions=$here/cmake/lsan.supp:print_suppressions=0"
    ctest --test-dir "$build" --output-on-failure -j "$jobs"
    ;;
format)
    cd "$here"
    git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
    echo "format: clean"
    ;;
bench)
    configure -DBUILD_TESTING=OFF -DBUILD_BENCHMARKS=ON
    cmake --build "$build" -j "$jobs"
    # Repetitions run interleaved in random order, so a figure and its
    # baseline see the same machine; read the medians.
    for b in "$build"/bench/bench_*; do
        [ -x "$b" ] && "$b" --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true \
            --benchmark_report_aggregates_only=true
    done
    ;;
*)
    echo "usage: $0 example|test|sanitize|format|bench" >&2
    exit 2
    ;;
esac
