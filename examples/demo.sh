#!/usr/bin/env bash
# The demonstration ./run demo runs. BUILD names the build folder.
#  1. A simulated instrument is driven through QorDeviceComm by a non-blocking
#     state-machine task (tools/demo): the library's main job.
#  2. The XML layer from the shell: documents checked and stamped (examples/xml).
#  3. Records: a hook record and a device's metadata, a head's reach on a plate.
#  4. A 3-D instrument model: its facts and an offscreen picture.
set -euo pipefail
: "${BUILD:?BUILD names the build folder}"
here=$(cd "$(dirname "$0")" && pwd)

if [ -x "$BUILD/tools/qor-demo" ]; then
  echo "=== A device task against the simulated instrument"
  "$BUILD/tools/qor-demo" --sim "$BUILD/tools/qor-sim"
  echo
  echo "=== The same task over a serial line (a pseudo-terminal)"
  "$BUILD/tools/qor-demo" --sim "$BUILD/tools/qor-sim" --serial
  echo
fi
echo "=== Documents of the XML dialect"
BUILD="$BUILD" sh "$here/xml/demo.sh"

echo
echo "=== A hook record read back from its document"
"$BUILD/tools/qor" xml check "$here/records/protocol-paused.xml"
"$BUILD/tools/qor" record show "$here/records/protocol-paused.xml"

echo
echo "=== A device's metadata: declared, queried and answered (examples/records)"
"$BUILD/examples/records/example_records"

echo
echo "=== Where an eight-channel head reaches on a 384-well plate"
"$BUILD/tools/qor" plate show "$here/records/eight-channel-selection.xml" --wells 384

echo
echo "=== An instrument model, placed by its mates and drawn offscreen"
"$BUILD/tools/qor" model info "$here/models/instrument.xml"
picture=$(mktemp --suffix=.png)
trap 'rm -f "$picture"' EXIT
if "$BUILD/tools/qor" model render "$here/models/instrument.xml" --png "$picture" --size 320x240; then
  echo "drew $(stat -c %s "$picture") bytes of PNG"
fi
