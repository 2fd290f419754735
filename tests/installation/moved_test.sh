#!/usr/bin/env bash
# Installs the program, moves the installation to a folder with a space and a letter beyond ASCII in its name, and runs it there without
# HOME in another locale. Every library and text has to come from the new place.
set -euo pipefail
cmake=$1
build=$2
job=$(cd "$(dirname "$0")/../.." && pwd)/examples/definitions/bar-job.json
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$cmake" --install "$build" --component program --strip --prefix "$folder/first" >/dev/null
root="$folder/zweite Stätte"
mv "$folder/first" "$root"

fail() { echo "$*" >&2; exit 1; }
vanzet() { env -i PATH=/usr/bin:/bin LANG=de_DE.UTF-8 QT_QPA_PLATFORM=offscreen "$root/bin/vanzet" "$@"; }

cd "$folder"
vanzet new lathe
vanzet define "$job" lathe
vanzet export lathe --out models --format step
vanzet picture lathe --view equipment --out equipment.png
[ -s models/equipment.step ] || fail "no STEP file was written"
[ "$(head -c 4 equipment.png | tail -c 3)" = PNG ] || fail "no picture was written"
[ "$(env -i VANZET_LANGUAGE=de "$root/bin/vanzet" new --help | head -1)" != "$(vanzet new --help | head -1)" ] ||
  fail "the texts in German were not found"

loaded=$(env -i LD_DEBUG=files "$root/bin/vanzet" upgrade lathe 2>&1)
grep -q "$root/lib/vanzet/libvanzet.so" <<<"$loaded" || fail "the module was not loaded from the installation"

for file in share/applications/vanzet.desktop share/mime/packages/vanzet.xml share/icons/hicolor/scalable/apps/vanzet.svg \
            share/bash-completion/completions/vanzet share/zsh/vendor-completions/_vanzet \
            share/fish/vendor_completions.d/vanzet.fish share/man/man1/vanzet.1.gz share/man/man1/vanzet-window.1.gz \
            share/man/man1/vanzet-exchange.1.gz share/man/man5/vanzet-vdm.5.gz share/doc/vanzet/copyright; do
  [ -s "$root/$file" ] || fail "$file was not installed"
done
grep -rlaF "$build" "$root/lib" "$root/share" "$root/bin" && fail "the build folder is named in the files above"
bash -c '. "$1" && complete -p vanzet' - "$root/share/bash-completion/completions/vanzet" >/dev/null
