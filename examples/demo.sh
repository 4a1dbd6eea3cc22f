#!/usr/bin/env bash
# The demonstration ./run demo runs. BUILD names the build folder.
set -euo pipefail
: "${BUILD:?BUILD names the build folder}"
echo "qor demo: nothing to show yet"
