#!/usr/bin/env bash
# Installs the build into a fresh prefix and builds a consumer program against it twice: through
# pkg-config and through the CMake package.
set -euo pipefail
build=$1
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/prefix" >/dev/null
test -f "$work/prefix/include/orn/primitives.h"
test -f "$work/prefix/lib/pkgconfig/ornprimitives.pc"

export PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig"
g++ "$here/consumer/consumer.cpp" -o "$work/viaPkgConfig" $(pkg-config --cflags --libs ornprimitives)
"$work/viaPkgConfig"

cmake -S "$here/consumer" -B "$work/cmakeBuild" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/cmakeBuild" >/dev/null
"$work/cmakeBuild/consumer"
echo "install layout, pkg-config and CMake package work"
