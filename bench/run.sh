#!/bin/bash
# Times the whole program: conversion beside cp of the same file, memory and time by length of the log, start.
# Usage: bench/run.sh [RUNS]
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-40}

cmake --preset bench -DVARNISTO_GUI=OFF >/dev/null
cmake --build --preset bench --target varnisto-cli make_log compare_runs >/dev/null
bin=$PWD/build/bench
cli=$bin/src/cli/varnisto-cli
compare=$bin/bench/compare_runs

work=$(mktemp -d "${TMPDIR:-/tmp}/varnisto-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
app=$work/app
cp -r data "$app"
cp examples/Varnisto.ini "$app"
for qsos in 1000 10000 30000 1000000; do
  mkdir "$work/$qsos"
  "$bin/bench/make_log" "$work/$qsos/log" "$qsos"
done
convert() { echo "$cli" --app-dir "$app" convert "$work/$1/log.all"; }

echo "30,000 QSOs, $runs runs each:"
"$compare" "$runs" cp cp "$work/30000/log.all" "$work/copy" \
  -- "varnisto-cli convert" $(convert 30000)

echo
echo "By length of the log:"
"$compare" "$runs" "1,000 QSOs" $(convert 1000) -- "10,000 QSOs" $(convert 10000) -- "30,000 QSOs" $(convert 30000)
"$compare" 3 "1,000,000 QSOs" $(convert 1000000)

blank=$work/blank.cbr
printf 'QSO:\r\n%.0s' $(seq 100000) >"$blank"
"$compare" 5 "check, 100,000 blank lines" "$cli" check "$blank"

echo
echo "Start, beside C++ programs with a static standard library:"
bare() { "${CXX:-c++}" -O2 -static-libstdc++ -static-libgcc -x c++ -o "$work/$1" -; }
echo 'int main() {}' | bare empty
printf '#include <iostream>\nint main() { std::cout << "1.0\\n"; }' | bare one-line
"$compare" $((runs * 5)) "an empty program" "$work/empty" -- "one that prints a line" "$work/one-line" \
  -- "varnisto-cli --version" "$cli" --version
