#!/usr/bin/env bash
# ./run.sh as a user meets it, on an existing build (LANDWRIGHT_BUILD): a track named relative to
# where the user stands, a track that does not exist, and a track whose opening shows a message
# box while there is no display. Usage: RunScriptTest.sh REPOSITORY BUILD
set -uo pipefail
repo=$1
export LANDWRIGHT_BUILD=$2
unset DISPLAY WAYLAND_DISPLAY # as on a machine without a display: run.sh takes the picture
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() {
  echo "FAILED: $*" >&2
  failures=$((failures + 1))
}

mkdir -p "$work/mine"
cp "$LANDWRIGHT_BUILD/bin/tracks/Demo.cvtrack" "$work/mine/Ride.cvtrack"
cd "$work"

# A relative track is found from the user's folder, and opens without a message.
out=$("$repo/run.sh" mine/Ride.cvtrack 2>&1)
status=$?
[ "$status" -eq 0 ] || fail "relative track: status $status: $out"
[ -f "$LANDWRIGHT_BUILD/screenshot.png" ] || fail "relative track: no picture"
case $out in *"answered by its default"*) fail "relative track: a message box showed: $out" ;; esac

# A missing track stops with a message and a status that says so.
out=$("$repo/run.sh" mine/Absent.cvtrack 2>&1)
status=$?
[ "$status" -ne 0 ] || fail "missing track: status 0"
case $out in *"mine/Absent.cvtrack"*) ;; *) fail "missing track: the message does not name it: $out" ;; esac

# A track the editor refuses shows a box: the run still ends, with the box and the window pictured.
printf 'not a track' > broken.cvtrack
out=$(timeout 120 "$repo/run.sh" broken.cvtrack 2>&1)
status=$?
[ "$status" -eq 0 ] || fail "message box: status $status: $out"
case $out in *"Invalid Track File."*) ;; *) fail "message box: not reported: $out" ;; esac
[ -f "$LANDWRIGHT_BUILD/screenshot-box1.png" ] || fail "message box: not pictured"
[ -f "$LANDWRIGHT_BUILD/screenshot.png" ] || fail "message box: no picture of the window"

[ "$failures" -eq 0 ] && echo "run.sh: all cases passed"
exit $((failures > 0))
