#!/usr/bin/env bash
# Formatting of every source file, clang-tidy on those that differ from a revision: origin/main, or where that
# is no other commit (a fresh clone) or is not known the commit fifty before this one.
# Usage: tools/lint.sh [REVISION | all]
set -euo pipefail
cd "$(dirname "$0")/.."

tools/dependencies.sh lint
mapfile -t sources < <(git ls-files -co --exclude-standard '*.cpp' '*.h')
clang-format --dry-run -Werror "${sources[@]}"

commit() { git rev-parse -q --verify "$1^{commit}"; }
default_base() {
  local main
  main=$(commit origin/main) && [ "$main" != "$(commit HEAD)" ] && echo "$main" && return
  commit HEAD~50 || echo all  # so short a history is checked as a whole
}
base=${1:-$(default_base)}

# The benchmarks are built only where their library is.
checked=('src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'fuzz/*.cpp' 'fuzz/*.h' 'tools/*.cpp')
if [ "$base" = all ]; then
  changed=$(git ls-files -co --exclude-standard -- "${checked[@]}")
elif commit "$base" >/dev/null; then
  changed=$(git diff --merge-base --name-only --diff-filter=d "$base" -- "${checked[@]}"
            git ls-files -o --exclude-standard -- "${checked[@]}")
else
  echo "tools/lint.sh: no such revision: $base" >&2
  exit 2
fi
# A header is checked with the source of its name, one without such a source by itself.
changed=$(while read -r file; do
            source=${file%.h}.cpp
            [ -f "$source" ] && echo "$source" || echo "$file"
          done <<<"$changed" | sort -u)
[ -z "$changed" ] && exit 0

# The test build's compile commands hold the fuzz targets too: it links each with the replay of its seeds.
cmake --preset dev >/dev/null
if grep -qE 'gui/|tools/' <<<"$changed"; then  # these include what is made of the .ui files
  cmake --build --preset dev --target varnisto_gui_autogen -- --quiet
fi
xargs -P "$(nproc)" -n 1 clang-tidy -p build/dev --quiet <<<"$changed" 2>&1 |
  { grep -vE '^[0-9]+ warnings? (generated|treated)|^$' || true; }
