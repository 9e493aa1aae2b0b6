#!/usr/bin/env bash
# Formatting of every source file, clang-tidy on those that differ from BASE (default: the commit before the last).
# Usage: tools/lint.sh [BASE]     BASE "all" checks every file.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/dependencies.sh lint
mapfile -t sources < <(git ls-files -co --exclude-standard '*.cpp' '*.h')
clang-format --dry-run -Werror "${sources[@]}"

base=${1:-$(git rev-parse -q --verify HEAD~1 || true)}
if [ "$base" = all ] || [ -z "$base" ]; then
  mapfile -t changed < <(git ls-files 'src/*.cpp')
else
  mapfile -t changed < <(git diff --name-only --diff-filter=d "$base" -- 'src/*.cpp')
fi
[ ${#changed[@]} -eq 0 ] && exit 0
cmake --preset dev >/dev/null
printf '%s\n' "${changed[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/dev --quiet 2>&1 |
  { grep -vE '^[0-9]+ warnings? (generated|treated)|^$' || true; }
[ "${PIPESTATUS[1]}" -eq 0 ]
