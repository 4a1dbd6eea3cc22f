#!/bin/sh
# The XML layer from the shell: check three documents (one good, one changed
# after it was stamped, one cut short), stamp the changed one, check again.
# Usage: BUILD=path/to/build examples/xml/demo.sh
set -u
BUILD=${BUILD:?set BUILD to the build folder}
BUILD=$(cd "$BUILD" && pwd) || exit 1
QOR="$BUILD/tools/qor"
[ -x "$QOR" ] || { echo "demo: $QOR not found; build the qor target first" >&2; exit 1; }
HERE=$(cd "$(dirname "$0")" && pwd)
WORK=$(mktemp -d "${TMPDIR:-/tmp}/qor-xml-demo.XXXXXX")
trap 'rm -rf "$WORK"' EXIT INT TERM
cp "$HERE/good.xml" "$HERE/tampered.xml" "$HERE/malformed.xml" "$WORK/"
cd "$WORK"

fail() { echo "demo: $*" >&2; exit 1; }

echo "== qor xml check good.xml tampered.xml malformed.xml"
echo "   (good is ok; tampered was edited after stamping; malformed is cut short)"
"$QOR" xml check good.xml tampered.xml malformed.xml > check.out
status=$?
cat check.out
[ "$status" -eq 1 ] || fail "check should exit 1 when a file is bad, got $status"
grep -q '^good.xml: ok$' check.out || fail "good.xml should be ok"
grep -q '^tampered.xml: sum mismatch' check.out || fail "tampered.xml should mismatch"
grep -q '^malformed.xml: error 4 in ' check.out || fail "malformed.xml should fail to parse"

echo
echo "== qor xml stamp tampered.xml"
"$QOR" xml stamp tampered.xml || fail "stamp failed"

echo
echo "== qor xml check tampered.xml good.xml"
"$QOR" xml check tampered.xml good.xml || fail "the restamped document should check ok"

echo
echo "== qor xml stamp malformed.xml (refused, the file stays as it was)"
cp malformed.xml before.xml
"$QOR" xml stamp malformed.xml && fail "stamping a malformed document should fail"
cmp -s malformed.xml before.xml || fail "a failed stamp changed the file"

echo
echo "demo: all XML steps behaved as expected"
