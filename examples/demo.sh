#!/usr/bin/env bash
# The demonstration ./run demo runs. BUILD names the build folder.
#  1. A simulated instrument is driven through QorDeviceComm by a non-blocking
#     state-machine task (tools/demo): the library's main job.
#  2. The XML layer from the shell: documents checked and stamped (examples/xml).
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
