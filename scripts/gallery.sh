#!/usr/bin/env bash
# Builds the library and runs the gallery. Without a display it renders every
# page to PNG files in gallery-shots/ (or the folder given) and exits.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ -z "${1:-}" ]; then
    exec ./build/gallery/zelGallery
fi
out="${1:-gallery-shots}"
QT_QPA_PLATFORM=offscreen ./build/gallery/zelGallery --screenshot "$out"
echo "Gallery pages written to $(cd "$out" && pwd)"
