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
"$scratch/cmake-client/qor_model_client"
"$scratch/cmake-client/qor_dom_client"

# A pkg-config client.
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
pkg-config --exists qor
# shellcheck disable=SC2046
g++ -o "$scratch/pc-client" "$consumer/main.cpp" $(pkg-config --cflags qor) $(pkg-config --libs --static qor)
"$scratch/pc-client"

# The installed command line answers, and issues and checks a product key with
# a vendor key pair made here.
"$prefix/bin/qor" --help >/dev/null
"$prefix/bin/qor" record new HooksPluginXMLMarshaller::TaskStarting > "$scratch/task.xml"
"$prefix/bin/qor" xml check "$scratch/task.xml" >/dev/null
"$prefix/bin/qor" record show "$scratch/task.xml" >/dev/null
"$prefix/bin/qor" record fields MetaDataManager::Command >/dev/null
openssl genpkey -algorithm ed25519 -out "$scratch/vendor.pem"
openssl pkey -in "$scratch/vendor.pem" -pubout -out "$scratch/vendor.pub"
key=$("$prefix/bin/qor" license issue --key "$scratch/vendor.pem" --product P --licensee L | tail -n 1)
"$prefix/bin/qor" license check "$key" --public-key "$scratch/vendor.pub" >/dev/null
echo "install: find_package, pkg-config and qor all work from $prefix"
