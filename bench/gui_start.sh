#!/bin/sh
# Start of the desktop program to its drawn main window, beside a bare Qt window, in one run; and the text
# viewer on a file of 100,000 lines. Without a display.
# usage: bench/gui_start.sh [RUNS]
set -eu
cd "$(dirname "$0")/.."
runs=${1:-15}
cmake --preset bench >/dev/null
cmake --build --preset bench --target gui_start bare_window
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp data/* examples/Varnisto.ini "$folder" 2>/dev/null || true
seq -f 'QSO: 21000 CW 2025-11-29 0003 QX1ABC        599 25     QX9DEF %g' 100000 >"$folder/long.txt"
export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*=false'

# Milliseconds of each run, the median last.
measure() {
  i=0
  while [ "$i" -lt "$runs" ]; do
    begin=$(date +%s%N)
    timeout 20 "$@" >/dev/null 2>&1
    end=$(date +%s%N)
    echo $(((end - begin) / 10000))
    i=$((i + 1))
  done | sort -n | awk '{ v[NR] = $1 / 100 } END { printf "median %.1f ms (least %.1f, most %.1f)\n", v[int((NR + 1) / 2)], v[1], v[NR] }'
}
programs=build/bench/bench/gui
printf 'bare Qt window: '; measure $programs/bare_window
printf 'varnisto:       '; measure $programs/gui_start "$folder"
$programs/gui_start "$folder" "$folder/long.txt" 2>/dev/null
