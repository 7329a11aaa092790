#!/usr/bin/env bash
# Makes the manual's pictures anew: plays its sessions, which the suite plays too, and keeps what they show.
# docs/manual/make_pictures.sh MANUAL_PLAYER
set -euo pipefail
player=$(realpath "$1")
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_SCALE_FACTOR=1

rm -f "$here"/pictures/*.png
for session in "$here"/sessions/*.kvs; do
  name=$(basename "$session" .kvs)
  case $name in absturz_*) continue ;; esac # played by another one
  "$player" "$session" --out "$work/$name"
  sed -n 's/^shot //p' "$session" | while read -r shot; do cp "$work/$name/$shot.png" "$here/pictures/"; done
done
