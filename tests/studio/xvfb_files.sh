#!/usr/bin/env bash
# One whole road through the real windows on a virtual display: a pattern is opened, an event added,
# the table saved with Ctrl+S, another one loaded with Ctrl+O in its place and added to as well, the
# pattern saved with OK, and the program left.
#     xvfb_files.sh STUDIO COMMAND_LINE PATTERN
set -euo pipefail

# A display number of its own: the server of the script before may still be closing.
if [ -z "${ORBIX_INNER:-}" ]; then
    export ORBIX_INNER=1
    exec timeout 100 xvfb-run -a -n 120 -s "-screen 0 1280x1024x24" "$0" "$@"
fi

studio=$1
orbix=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_RUNTIME_DIR=$scratch XDG_CONFIG_HOME=$scratch XDG_DATA_HOME=$scratch
export QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1
mkdir "$scratch/folder"
cp "$3" "$scratch/work.3dp"
"$orbix" convert -q "$3" "$scratch/before.csv"
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
        kill -0 $program 2>/dev/null || fail "the studio is gone"
        found=$(titled "$title" | grep -vxF "$(printf '%s\n' none "$@")" || true)
    done
    xdotool windowfocus --sync "$found"
    echo "$found"
}
click() { xdotool mousemove --window "$editor" "$1" "$2" click 1; }
# one_more FILE OTHER: true when OTHER is FILE with one line put in.
one_more() { [ "$(diff "$1" "$2" | grep -o '^[<>]')" = '>' ]; }
await_gone() { while titled "$1" | grep -q .; do :; done; }

cd "$scratch/folder"
"$studio" "$scratch/work.3dp" &
program=$!
editor=$(await Orbix)
xdotool windowmove --sync "$editor" 20 20
click 100 150 # a row of the list
click 365 384 # Add

xdotool key ctrl+s
await "Save As" >/dev/null
xdotool type "saved"
xdotool key Return
await_gone "Save As"
while [ ! -s saved.csv ]; do :; done
one_more "$scratch/before.csv" saved.csv || fail "the saved table is another one"

xdotool windowfocus --sync "$editor" key ctrl+o
await Open >/dev/null
xdotool type "take one"
xdotool key Return
await_gone Open
await Orbix "$editor" >/dev/null
xdotool key Return
while [ "$(titled Orbix)" != "$editor" ]; do :; done

xdotool windowfocus --sync "$editor"
click 365 384
click 561 568 # OK
await_gone Orbix
# The document's window stays; one that has only just come back may miss a key.
while kill -0 $program 2>/dev/null; do
    window=$(xdotool search --onlyvisible --pid $program 2>/dev/null | head -1 || true)
    [ -z "$window" ] || xdotool windowfocus "$window" key ctrl+q || true
    sleep 0.2
done
wait $program || fail "the studio gave $?"
"$orbix" convert -q "$scratch/work.3dp" "$scratch/result.csv"
one_more "take one.csv" "$scratch/result.csv" || fail "the pattern is not what was made"
echo "the event files went through the windows"
