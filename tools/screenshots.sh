#!/bin/sh
# Draws the pictures of the documentation anew, without a display: docs/images/*.png and the help's picture.
# usage: tools/screenshots.sh [FOLDER [--dark]]   (QT_FONT_DPI=144 draws them with larger letters)
set -eu
cd "$(dirname "$0")/.."
folder=${1:-docs/images}
[ $# -gt 0 ] && shift
mkdir -p "$folder"
cmake --preset dev >/dev/null
cmake --build --preset dev --target gui_pictures
QT_QPA_PLATFORM=offscreen build/dev/tests/gui_pictures "$folder" "$@"
if [ "$folder" = docs/images ] && [ -d data/help ]; then cp docs/images/main_window.png data/help/; fi
