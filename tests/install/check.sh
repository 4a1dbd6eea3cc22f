#!/usr/bin/env bash
# usage: check.sh BUILD_DIR CONSUMER_SOURCE_DIR
set -euo pipefail
build=$1 consumer=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null

# A CMake client.
cmake -S "$consumer" -B "$scratch/cmake-client" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$scratch/cmake-client" >/dev/null
"$scratch/cmake-client/qor_client"

# A pkg-config client.
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
pkg-config --exists qor
# shellcheck disable=SC2046
g++ -o "$scratch/pc-client" "$consumer/main.cpp" $(pkg-config --cflags qor) $(pkg-config --libs --static qor)
"$scratch/pc-client"

# The installed command line answers.
"$prefix/bin/qor" --help >/dev/null
echo "install: find_package, pkg-config and qor all work from $prefix"
