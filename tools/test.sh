#!/usr/bin/env bash
# Builds everything with sanitizers and runs every test, the fuzz corpus included.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/dependencies.sh test
cmake --preset dev >/dev/null
cmake --build --preset dev -- --quiet
ctest --preset dev --parallel "$(nproc)" "$@"
