#!/usr/bin/env bash
# Set-up and build on a fresh Debian 12 machine.
#   ./bootstrap.sh example   build, then run the sample application
#   ./bootstrap.sh test      build, then run every test
#   ./bootstrap.sh bench     build the benchmarks and run them
# Missing Debian packages are installed first (needs root or sudo); a machine
# that has them all is left alone. BUILD_DIR chooses the build folder.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
build="${BUILD_DIR:-$here/build}"
what="${1:-test}"
jobs="$(nproc 2>/dev/null || echo 2)"

packages=(cmake make g++ pkg-config qt6-base-dev qt6-base-dev-tools libgl-dev
          libtinyxml-dev libsodium-dev)
[ "$what" = bench ] && packages+=(libbenchmark-dev libssl-dev)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ "${#missing[@]}" -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
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
    echo "usage: $0 example|test|bench" >&2
    exit 2
    ;;
esac
