#!/usr/bin/env bash
# Makes the manual's pictures: plays each step with the mouse at a real workbench on a screen of its own.
# docs/manual/make_pictures.sh WORKBENCH [DISPLAY], with Xvfb, xdotool and ImageMagick (import, convert) installed.
set -euo pipefail
workbench=$(realpath "$1")
here=$(cd "$(dirname "$0")" && pwd)
export DISPLAY=${2:-:97}
folder=$(mktemp -d)
export XDG_CONFIG_HOME=$folder/config XDG_STATE_HOME=$folder/state XDG_RUNTIME_DIR=$folder/run
mkdir -m 700 "$XDG_RUNTIME_DIR"
cp "$here"/../../examples/data/{brick,gravel}.png "$folder"

Xvfb "$DISPLAY" -r -screen 0 1200x800x24 > "$folder/xvfb.log" 2>&1 &
screen=$!
bench=
trap 'kill -9 $bench $screen 2> /dev/null || true; wait 2> /dev/null || true; rm -rf "$folder"' EXIT
sleep 1

open_image() { "$workbench" "$1" > "$folder/log" 2>&1 & bench=$!; sleep 3; to 700 700; click 700 700; }
to() { xdotool mousemove "$1" "$2"; sleep 0.15; }
click() { to "$1" "$2"; xdotool click 1; sleep 0.2; }
double() { to "$1" "$2"; xdotool click --repeat 2 --delay 80 1; sleep 0.3; }
press() { to "$1" "$2"; xdotool mousedown 1; to $((($1 + $3) / 2)) $((($2 + $4) / 2)); to "$3" "$4"; }
drag() { press "$@"; xdotool mouseup 1; sleep 0.2; }
key() { xdotool key "$@"; sleep 0.4; }
picture() { sleep 0.3; import -window root png:- | convert - -colors 64 -strip "$here/pictures/$1.png"; }

open_image "$folder/brick.png"
picture oeffnen
to 330 400
xdotool keydown ctrl; sleep 0.2
for _ in 1 2 3; do xdotool click 4; sleep 0.2; done
xdotool keyup ctrl
picture ansicht
key ctrl+0
click 300 300; xdotool click 3; sleep 0.4; key Down Down Right
picture kontextmenue
key Escape Escape Escape
key F5; press 150 200 250 280
picture rechteck
xdotool mouseup 1; sleep 0.3
key F6; drag 300 200 380 300
picture ellipse
key F7; click 430 200; click 500 220; click 480 300; double 430 290
picture polygon
key F8; click 150 350; click 250 400; double 300 350
picture linienzug
key shift+F6; drag 320 230 360 270
picture ausschliessen
key F2; click 150 240; drag 150 220 260 420
picture verschieben
click 430 250; key F3
picture punkte
key F2; double 1002 110; xdotool type --delay 40 "Kratzer"; key Return
picture liste
key ctrl+s
picture speichern
key ctrl+m; sleep 1
picture maske
key Escape
click 30 700
key F5; drag 450 450 560 560
sleep 2.5; kill -9 $bench; wait $bench 2> /dev/null || true
"$workbench" > "$folder/log" 2>&1 & bench=$!; sleep 3
picture wiederherstellen
