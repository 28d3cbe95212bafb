#!/usr/bin/env bash
# Builds the library and runs the demo or the tests. Installs the Debian packages it needs when
# they are missing (as root, or through sudo).
#   ./build.sh demo       build, then run the demo (writes PNG files to out/)
#   ./build.sh test       build, then run every unit test
#   ./build.sh sanitize   build with AddressSanitizer and UBSan in build-sanitize/, run every test
#   ./build.sh bench      build, then run the benchmarks
set -euo pipefail
cd "$(dirname "$0")"

packages=(cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev libpng-dev libglu1-mesa-dev)

ensure_packages() {
  local missing=()
  for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing: ${missing[*]}"
  local sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -q
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q "${missing[@]}"
}

jobs=$(nproc 2>/dev/null || echo 2)

build() {
  local dir=$1
  shift
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
  cmake --build "$dir" -j "$jobs"
}

ensure_packages
case "${1:-}" in
  demo)
    build build -DCMAKE_BUILD_TYPE=Release
    ./build/bin/ornDemo "${@:2}"
    ;;
  test)
    build build -DCMAKE_BUILD_TYPE=Release
    (cd build && ctest --output-on-failure -j "$jobs")
    ;;
  sanitize)
    # -O1 keeps the sanitized build quick to compile and its reports readable.
    build build-sanitize -DORN_SANITIZE=ON -DORN_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=-O1
    (cd build-sanitize && ctest --output-on-failure -j "$jobs")
    ;;
  bench)
    build build -DCMAKE_BUILD_TYPE=Release
    for b in build/bin/ornBench*; do "$b" "${@:2}"; done
    ;;
  *)
    echo "usage: $0 demo|test|sanitize|bench" >&2
    exit 2
    ;;
esac
