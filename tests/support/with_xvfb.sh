#!/usr/bin/env bash
# Runs a test program against a private Xvfb server on a display that the server picks
# itself, then stops the server. The number comes on a pipe as one line, which is read
# whole: the server dies if the pipe closes between the number and its line feed.
set -u
fifo=$(mktemp -u) && mkfifo "$fifo" || exit 1
log=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$fifo" 2>"$log" &
server=$!
read -r display <"$fifo"
rm -f "$fifo"
if [ -z "$display" ]; then
    echo "Xvfb did not start:" >&2
    cat "$log" >&2
    rm -f "$log"
    exit 1
fi
DISPLAY=":$display" "$@"
status=$?
kill "$server" 2>/dev/null
wait "$server" 2>/dev/null
rm -f "$log"
exit "$status"
