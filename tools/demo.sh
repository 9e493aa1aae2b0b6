#!/usr/bin/env bash
# Builds the command-line program and converts an example log: what went in, what came out.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/dependencies.sh cli
cmake --preset cli >/dev/null
cmake --build --preset cli -- --quiet

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/program"
cp data/*.* examples/Varnisto.ini "$work/program"
cp examples/cqww-cw/* "$work"

echo "== The logger's files: QX1ABC.ALL (first lines) and QX1ABC.zsm (first lines)"
head -n 5 "$work/QX1ABC.ALL" | iconv -f CP932 -t UTF-8 | tr -d '\r'
echo
head -n 6 "$work/QX1ABC.zsm" | iconv -f CP932 -t UTF-8 | tr -d '\r'
echo
echo "== varnisto-cli convert QX1ABC.ALL"
build/cli/src/cli/varnisto-cli --app-dir "$work/program" convert "$work/QX1ABC.ALL"
echo
echo "== QX1ABC.cbr (QX1ABC.log is the same)"
iconv -f CP932 -t UTF-8 "$work/QX1ABC.cbr" | tr -d '\r' | head -n 24
echo "..."
tail -n 1 "$work/QX1ABC.cbr" | tr -d '\r'
