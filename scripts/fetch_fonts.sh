#!/usr/bin/env bash
# Puts IBM Plex Sans Regular and SemiBold as TTF into data/ttf. The fonts come from
# the npm package @ibm/plex-sans as WOFF2 and are decompressed with woff2_decompress.
# Without them the dialogs fall back on the system fonts, so a failure only warns.
set -uo pipefail
cd "$(dirname "$0")/.."

plex_version="1.1.0"
target="data/ttf"
fonts=(IBMPlexSans-Regular IBMPlexSans-SemiBold)

have_all=1
for f in "${fonts[@]}"; do [ -s "$target/$f.ttf" ] || have_all=0; done
[ "$have_all" -eq 1 ] && exit 0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$target"
if ! (cd "$work" && npm pack --silent "@ibm/plex-sans@$plex_version" >/dev/null 2>&1 &&
      tar xzf ./*.tgz); then
    echo "warning: could not fetch @ibm/plex-sans; the dialogs will use system fonts" >&2
    exit 0
fi
for f in "${fonts[@]}"; do
    src="$work/package/fonts/complete/woff2/$f.woff2"
    if [ -f "$src" ] && woff2_decompress "$src" >/dev/null 2>&1; then
        mv "$work/package/fonts/complete/woff2/$f.ttf" "$target/$f.ttf"
    else
        echo "warning: could not decompress $f" >&2
    fi
done
