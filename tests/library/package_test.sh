#!/usr/bin/env bash
# The built files, packed twice under different circumstances, give the same archive, and it holds what it should.
#   package_test.sh BUILD-FOLDER
set -euo pipefail
folder=$1
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. scripts/steps.sh
. scripts/build.sh
. scripts/package.sh

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/builds/site/speed"  # building the real one takes a compiler of its own
echo page | tee "$work/builds/site/index.html" >"$work/builds/site/speed/chart.svg"
ln -s "$folder" "$work/builds/$native"
export SOURCE_DATE_EPOCH=1000000000
(umask 077 && TZ=Asia/Tokyo LC_ALL=C pack it "$work/one" "$work/builds" "$native")
sleep 2  # the step of an archive's times
(umask 002 && TZ=America/Lima pack it "$work/two" "$work/builds" "$native")
cmp "$work/one/it.zip" "$work/two/it.zip"

cd "$work"
TZ=UTC unzip -q one/it.zip
cd it
sha256sum --quiet --check SHA256SUMS
find . -type f | LC_ALL=C sort
for file in StringPlugin.so stringhost README.md LICENSE CHANGELOG.md docs/methods/README.md \
  completions/stringhost.bash site/index.html site/speed/chart.svg; do
  [ -s "$file" ] || fail "the archive lacks $file"
done
[ -z "$(find . -name '*.debug')" ] || fail "debug information in the archive"
[ "$(find . -type f | wc -l)" -eq $(($(wc -l <SHA256SUMS) + 1)) ] || fail "a file without its checksum"
[ "$(date -u -r LICENSE +%s)" -eq "$SOURCE_DATE_EPOCH" ] || fail "the archive's times are not those of the sources"
[ "$(./stringhost call EncodingToHexZQV AB)" = 4142 ] || fail "the unpacked program doesn't find its plugin"
