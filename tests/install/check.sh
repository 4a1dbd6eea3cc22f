#!/usr/bin/env bash
# usage: check.sh BUILD_DIR CONSUMER_SOURCE_DIR SOURCE_DIR
set -euo pipefail
build=$1 consumer=$2 source=$3
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
"$prefix/bin/qor" record list | grep -q '^PipetteXMLMarshaller$'
"$prefix/bin/qor" plate show "$source/examples/records/eight-channel-selection.xml" --wells 384 \
  --svg "$scratch/selection.svg" | grep -q '^P   '
grep -q '<svg' "$scratch/selection.svg"
"$prefix/bin/qor" record new PipetteXMLMarshaller::TipBoxState > "$scratch/box.xml"
"$prefix/bin/qor" plate show "$scratch/box.xml" | grep -q '^TipBoxState: 96-well plate$'
"$prefix/bin/qor" model info "$source/examples/models/instrument.xml" | grep -q '^placed bounds:'
"$prefix/bin/qor" model render "$source/examples/models/instrument.xml" --png "$scratch/model.png" --size 160x120 >/dev/null

# The records example, built on its own against the prefix.
cmake -S "$source/examples/records" -B "$scratch/records-example" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$scratch/records-example" >/dev/null
"$scratch/records-example/example_records" | grep -q '^Sealer '

# The desktop programs: help without a display, then a picture of each window.
"$prefix/bin/qor-view" --help | grep -q '^usage: qor-view'
"$prefix/bin/qor-gallery" --help | grep -q '^usage: qor-gallery'
xvfb=(xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp")
"${xvfb[@]}" "$prefix/bin/qor-view" --screenshot "$scratch/view.png" "$source/examples/models/instrument.xml"
"${xvfb[@]}" "$prefix/bin/qor-gallery" --screenshot "$scratch/gallery.png"
for picture in model view gallery; do
  [ "$(head -c 8 "$scratch/$picture.png" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ]
done
openssl genpkey -algorithm ed25519 -out "$scratch/vendor.pem"
openssl pkey -in "$scratch/vendor.pem" -pubout -out "$scratch/vendor.pub"
key=$("$prefix/bin/qor" license issue --key "$scratch/vendor.pem" --product P --licensee L | tail -n 1)
"$prefix/bin/qor" license check "$key" --public-key "$scratch/vendor.pub" >/dev/null
echo "install: find_package, pkg-config, qor, the records example and the desktop programs all work from $prefix"
