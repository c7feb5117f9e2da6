#!/usr/bin/env bash
# The way of an event file through the real windows on a virtual display: the table is saved with
# Ctrl+S, another one opened with Ctrl+O in its place, and the pattern kept with OK.
#     xvfb_files.sh STUDIO COMMAND_LINE PATTERN
set -euo pipefail

if [ -z "${ORBIX_INNER:-}" ]; then
    export ORBIX_INNER=1
    exec timeout 100 xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi

studio=$1
orbix=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_RUNTIME_DIR=$scratch XDG_CONFIG_HOME=$scratch XDG_DATA_HOME=$scratch
export QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1
mkdir "$scratch/folder"
cp "$3" "$scratch/work.3dp"
"$orbix" convert -q "$3" "$scratch/expected.csv"
printf '%s\r\n' "Division,480" \
    "3D ID,Meas,Beat,Tick,Distance,Azimuth,Elevation,TimeSig." \
    ",1,1,0,,,,3_4" "2,4,3,120,1500,-90,30" >"$scratch/folder/take one.csv"

fail() { echo "FAILED: $1" >&2; exit 1; }

titled() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null || true; }
# Waits for a window with the title beside those named, and gives it the keyboard.
await() {
    local title=$1 found=""
    shift
    while [ -z "$found" ]; do
        found=$(titled "$title" | grep -vxF "$(printf '%s\n' none "$@")" || true)
    done
    xdotool windowfocus --sync "$found"
    echo "$found"
}
await_gone() { while titled "$1" | grep -q .; do :; done; }

cd "$scratch/folder"
"$studio" "$scratch/work.3dp" &
program=$!
editor=$(await Orbix)
xdotool windowmove --sync "$editor" 20 20
xdotool mousemove --window "$editor" 100 150 click 1

xdotool key ctrl+s
await "Save As" >/dev/null
xdotool type "saved"
xdotool key Return
await_gone "Save As"
while [ ! -s saved.csv ]; do :; done
cmp saved.csv "$scratch/expected.csv" || fail "the saved table is another one"

xdotool windowfocus --sync "$editor" key ctrl+o
await Open >/dev/null
xdotool type "take one"
xdotool key Return
await_gone Open
await Orbix "$editor" >/dev/null
xdotool key Return
while [ "$(titled Orbix)" != "$editor" ]; do :; done

xdotool windowfocus --sync "$editor" mousemove --window "$editor" 561 568 click 1
await_gone Orbix
# The document's window stays; one that has only just come back may miss a key.
while kill -0 $program 2>/dev/null; do
    window=$(xdotool search --onlyvisible --pid $program 2>/dev/null | head -1 || true)
    [ -z "$window" ] || xdotool windowfocus "$window" key ctrl+q || true
    sleep 0.2
done
wait $program || fail "the studio gave $?"
"$orbix" convert -q "$scratch/work.3dp" "$scratch/result.csv"
cmp "$scratch/result.csv" "take one.csv" || fail "the pattern is not what was opened"
echo "the event files went through the windows"
