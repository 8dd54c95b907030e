#!/usr/bin/env bash
# Builds the library with warnings as errors and runs every test offscreen.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup-deps.sh
cmake --preset ci >/dev/null
cmake --build --preset ci
ctest --preset ci --output-on-failure
