#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# picture.sh PROGRAM FILE.png: starts the program on the current display, takes a screenshot of its window when it shows
# more than its first texts, and ends it.
set -eu
program=$1
file=$2
work=$(mktemp -d)
: "${XDG_RUNTIME_DIR:=$work}" # Qt warns if it is missing, as without a login session
export XDG_RUNTIME_DIR
# Uses the user's settings, but disables the message about a missing CD drive, which would be in the screenshot. If a
# key occurs twice, the first occurrence counts.
settings=${XDG_CONFIG_HOME:-$HOME/.config}/TKW2/TKW2.ini
mkdir -p "$work/config/TKW2"
{ printf '[Notice]\nNoCdDrive=False\n'; [ ! -f "$settings" ] || sed '1s/^\xEF\xBB\xBF//' "$settings"; } >"$work/config/TKW2/TKW2.ini"
XDG_CONFIG_HOME=$work/config "$program" &
process=$!
trap 'kill $process 2>/dev/null || true; rm -rf "$work"' EXIT

window=$(timeout 30 xdotool search --sync --onlyvisible --pid $process | tail -n 1)
[ -n "$window" ] || { echo "The window did not come up." >&2; exit 1; }

maim --hidecursor --window "$window" "$work/first.png"
waited=0
while maim --hidecursor --window "$window" "$file" && cmp -s "$work/first.png" "$file"; do
    waited=$((waited + 1))
    [ $waited -le 30 ] || { echo "The lines did not change within 30 s." >&2; exit 1; }
    kill -0 $process || { echo "The program ended." >&2; exit 1; }
    sleep 1
done
sleep 1 # until the wipe has ended
maim --hidecursor --window "$window" "$file"
