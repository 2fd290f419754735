#!/usr/bin/env bash
# Reads the module from its file, without running it: its exports, the libraries that it needs, its resources, its size.
# usage: dll_test.sh vanzet.dll
set -euo pipefail
dll=$1
headers=$(x86_64-w64-mingw32-objdump -p "$dll")
failed=0
expect() {
  [ "$2" = "$3" ] && return
  printf '%s:\n  expected %s\n  found    %s\n' "$1" "$2" "$3"
  failed=1
}
expect exports 'ReOrgVdm mstart' \
  "$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/.*\] //p' <<<"$headers" | grep -v '^Table' | sort | paste -sd' ')"
expect imports 'KERNEL32.dll USER32.dll msvcrt.dll' \
  "$(sed -n 's/.*DLL Name: //p' <<<"$headers" | LC_ALL=C sort | paste -sd' ')"
resources=$(x86_64-w64-mingw32-windres -J coff "$dll")
expect 'manifest of resource 2' 1 "$(grep -c '^2 24 ' <<<"$resources" || true)"
expect 'version resource' 1 "$(grep -c VERSIONINFO <<<"$resources" || true)"
stripped=$(mktemp)
trap 'rm -f "$stripped"' EXIT
x86_64-w64-mingw32-strip -o "$stripped" "$dll"
bytes=$(stat -c %s "$stripped")
expect 'stripped, under 3 MB' yes "$([ "$bytes" -lt 3000000 ] && echo yes || echo "$bytes bytes")"
exit $failed
