#!/usr/bin/env bash
# Builds the library with warnings as errors and runs every test offscreen.
#   --sanitize   builds and runs the suite under the address, leak and
#                undefined-behaviour sanitizers instead (preset asan).
set -euo pipefail
cd "$(dirname "$0")/.."
preset=ci
case "${1:-}" in
    "") ;;
    --sanitize) preset=asan ;;
    *) echo "usage: $0 [--sanitize]" >&2; exit 2 ;;
esac
bash scripts/setup-deps.sh
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset" --output-on-failure
