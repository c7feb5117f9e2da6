#!/usr/bin/env bash
# Clicks on Send in the real editor on a virtual display and looks at the bytes that arrive at
# another program through a real JACK server.
#     device_session.sh STUDIO PATTERN
set -euo pipefail

# A display number of its own: the server of the script before may still be closing.
if [ -z "${ORBIX_INNER:-}" ]; then
    export ORBIX_INNER=1
    exec xvfb-run -a -n 140 -s "-screen 0 1280x1024x24" "$0" "$@"
fi

studio=$1
scratch=$(mktemp -d)
started=()
# The last first: a server that goes before its clients leaves its name in the registry of JACK, which
# has room for eight, and each client its semaphore.
finish() {
    local last
    for ((last = ${#started[@]} - 1; last >= 0; --last)); do
        kill "${started[last]}" 2>/dev/null || true
        wait "${started[last]}" || true
    done
    rm -rf "$scratch" /dev/shm/jack*"$JACK_DEFAULT_SERVER"*
}
trap finish EXIT
export XDG_RUNTIME_DIR=$scratch XDG_CONFIG_HOME=$scratch XDG_DATA_HOME=$scratch
export QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1 JACK_DEFAULT_SERVER=orbix-session-$$
cp "$2" "$scratch/work.3dp"

# await CONDITION...: at most ten seconds.
await() {
    local turn
    for turn in {1..100}; do
        if "$@"; then return 0; fi
        sleep 0.1
    done
    return 1
}

jackd -n "$JACK_DEFAULT_SERVER" --no-realtime -d dummy -r 48000 -p 2048 >"$scratch/server" 2>&1 &
started+=($!)
has_server() { jack_lsp >/dev/null 2>&1; }
await has_server || { echo "jackd does not run here:"; cat "$scratch/server"; exit 77; }
jack_midi_dump -r far-synth >"$scratch/heard" 2>&1 &
started+=($!)
has_listener() { jack_lsp 2>/dev/null | grep -q '^far-synth:input$'; }
await has_listener

# As an earlier session left it.
mkdir -p "$scratch/orbix-studio"
printf '[device]\noutput=@ByteArray(jack:far-synth:input)\n' >"$scratch/orbix-studio/settings.ini"

"$studio" "$scratch/work.3dp" &
program=$!
started+=($program)
is_editor() {
    editor=$(xdotool search --onlyvisible --pid $program --name '^Orbix$' 2>/dev/null | tail -1)
    [ -n "$editor" ]
}
await is_editor || { echo "FAILED: no editor" >&2; exit 1; }
xdotool windowfocus --sync "$editor" windowraise "$editor"

# A window that has only just come up may miss a click; each sends the same.
click_and_hear() {
    xdotool mousemove --window "$editor" 436 568 click 1
    sleep 1
    grep -q ': f0 .* f7$' "$scratch/heard"
}
await click_and_hear || { echo "FAILED: nothing arrived" >&2; exit 1; }
if [ -n "${ORBIX_PICTURE:-}" ]; then import -window root "$ORBIX_PICTURE"; fi
heard=$(sed -n 's/^.*: \(f0 .*\)$/\1/p' "$scratch/heard" | head -1)
echo "arrived at far-synth:input: $heard"
[ "$heard" = "f0 43 79 08 7f 29 00 00 00 07 68 40 40 00 00 00 00 f7" ] ||
    { echo "FAILED: other bytes" >&2; exit 1; }
