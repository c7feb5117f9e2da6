#!/usr/bin/env bash
# Drives the real windows on a virtual display: in the editor a drag given up with Esc, a drag,
# tabbing and typing, a button held down, Add and OK; then the window is closed, and what stands in
# the file is looked at.
#     xvfb_session.sh STUDIO COMMAND_LINE PATTERN
set -euo pipefail

if [ -z "${ORBIX_INNER:-}" ]; then
    export ORBIX_INNER=1
    exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi

studio=$1
orbix=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_RUNTIME_DIR=$scratch XDG_CONFIG_HOME=$scratch XDG_DATA_HOME=$scratch
export QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1
file=$scratch/work.3dp
cp "$3" "$file"

fail() { echo "FAILED: $1" >&2; "$orbix" show "$file" >&2; exit 1; }

# window_of PID TITLE [NOT]: the window of a program whose title matches, another one than NOT;
# gives it the keyboard. The editor and the boxes are called "Orbix".
window_of() {
    local found
    while [ $SECONDS -lt 100 ]; do
        for found in $(xdotool search --onlyvisible --pid "$1" 2>/dev/null); do
            if [ "$found" != "${3:-}" ] &&
                [[ "$(xdotool getwindowname "$found" 2>/dev/null)" =~ $2 ]]; then
                xdotool windowfocus --sync "$found"
                echo "$found"
                return
            fi
        done
        sleep 0.1
    done
    fail "no window $2"
}
# A window that has only just come up may miss a key, so both press it until it has done its work.
answer() { # PID BOX KEY
    while xdotool search --onlyvisible --pid "$1" 2>/dev/null | grep -qx "$2"; do
        [ $SECONDS -lt 100 ] || fail "the box does not take $3"
        xdotool key "$3"
        sleep 0.2
    done
}
quit() {
    window_of "$1" 3dp >/dev/null
    while [ $SECONDS -lt 100 ] && kill -0 "$1" 2>/dev/null; do
        xdotool key ctrl+q
        sleep 0.2
    done
}
expect_code() {
    local code=0
    wait "$1" || code=$?
    [ "$code" = "$2" ] || fail "$3: exit code $code, not $2"
}

# Places in the client area: the dot of ID 0 at measure 1, beat 3 (0.80 m to the right), and one
# 40 pixels nearer to the listener.
at() { xdotool mousemove --window "$window" "$1" "$2"; }
click() { at "$1" "$2"; xdotool click 1; }
dot="617 129"
nearer="577 129"

# --- a session, with a second editor that is refused meanwhile -----------------------------------

"$studio" "$file" &
program=$!
window=$(window_of $program '^Orbix$')
xdotool windowmove --sync "$window" 20 20

"$studio" &
second=$!
answer $second "$(window_of $second '^Orbix$')" Return
expect_code $second 255 "the second editor"
xdotool windowfocus --sync "$window"

# shellcheck disable=SC2086
{
    at $dot; xdotool mousedown 1; at 597 140; at 520 60
    xdotool key Escape mouseup 1

    at $dot; xdotool mousedown 1; at 597 129; at $nearer; xdotool mouseup 1
}

# From the list on: the name comes next in tab order.
click 100 150
xdotool key Tab key ctrl+a type Driven
xdotool key Tab

# The ">" of the azimuth, held for some steps; then the position becomes a new event.
at 297 494
xdotool mousedown 1 sleep 1.2 mouseup 1
click 365 384
click 561 568

quit $program
expect_code $program 0 "the studio"
"$orbix" info "$file" | grep -q '^Name: *Driven$' || fail "the name was not typed"
"$orbix" info "$file" | grep -q '^Events: *50 ' || fail "the held position was not added"
"$orbix" show "$file" | grep -Eq '^ +1 +3 +0 +ID 0 +0\.45 +90 +0 ' || fail "the dot was not dragged"

# --- a save that fails: the folder is gone; then it is there again -------------------------------

mkdir "$scratch/gone"
cp "$file" "$scratch/gone/work.3dp"
"$studio" "$scratch/gone/work.3dp" &
program=$!
window=$(window_of $program '^Orbix$')
click 100 150
xdotool key Tab key ctrl+a type Again
rm -r "$scratch/gone"
click 561 568
box=$(window_of $program '^Orbix$' "$window")
mkdir "$scratch/gone"
answer $program "$box" alt+t
quit $program
expect_code $program 0 "the second try to save"
"$orbix" info "$scratch/gone/work.3dp" | grep -q '^Name: *Again$' || fail "the edit was lost"

echo "the sessions on the virtual display went well"
