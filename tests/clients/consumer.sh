#!/usr/bin/env bash
# Installs a build and builds a stranger's project against it, with CMake and with pkg-config.
# Usage: consumer.sh BUILD_DIR WORK_DIR LIBDIR CXX_FLAGS
set -euo pipefail
build=$1 work=$2 libdir=$3 flags=$4
here=$(cd "$(dirname "$0")" && pwd)

rm -rf "$work"
cmake --install "$build" --prefix "$work/prefix" >"$work.install.log"
export PKG_CONFIG_PATH="$work/prefix/$libdir/pkgconfig"
cmake -G Ninja -S "$here/consumer" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$work/build" >/dev/null
LD_LIBRARY_PATH="$work/prefix/$libdir" "$work/build/with_cmake"
LD_LIBRARY_PATH="$work/prefix/$libdir" "$work/build/with_pkgconfig"
