#!/usr/bin/env bash
# Installs the Debian packages of a purpose ("cli", "test", "lint", "bench", "fuzz", "faults") that are missing; says
# nothing when none is.
set -euo pipefail

packages_cli=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev)
packages_test=("${packages_cli[@]}" googletest libgtest-dev qt6-base-dev libgl-dev fonts-ipafont-gothic)
packages_lint=("${packages_test[@]}" clang-format clang-tidy)
packages_bench=("${packages_cli[@]}" libbenchmark-dev qt6-base-dev libgl-dev)
packages_fuzz=("${packages_cli[@]}" clang libclang-rt-14-dev)
packages_faults=(strace python3)

declare -n packages="packages_${1:-test}"
missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Please install: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing ${missing[*]} ..."
log=$(mktemp)
trap 'rm -f "$log"' EXIT
export DEBIAN_FRONTEND=noninteractive
if ! { "${as_root[@]}" apt-get -q update && "${as_root[@]}" apt-get -qy install --no-install-recommends "${missing[@]}"; } \
    >"$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
