#!/usr/bin/env bash
# Installs with apt-get everything the build, the tests, the Designer plugin,
# the benchmarks and the sanitizer build use that the machine lacks; given
# package names, those instead (scripts/fuzz.sh asks for its compiler so).
set -euo pipefail
pkgs=("$@")
[ ${#pkgs[@]} -gt 0 ] || pkgs=(g++ cmake ninja-build git pkg-config ccache ca-certificates
      qt6-base-dev libgl-dev                # the library, tests, gallery
      qt6-tools-dev qt6-tools-dev-tools     # the Designer plugin and its test
      libqt6opengl6-dev                     # Debian's Designer CMake package needs it
      libbenchmark-dev                      # the benchmarks
      libasan8 liblsan0 libubsan1           # scripts/test.sh --sanitize
      fonts-dejavu-core xvfb xauth)
missing=()
for p in "${pkgs[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
