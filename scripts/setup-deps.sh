#!/usr/bin/env bash
# Installs with apt-get whatever the build needs and the machine lacks.
set -euo pipefail
pkgs=(g++ cmake ninja-build git pkg-config
      qt6-base-dev qt6-tools-dev qt6-tools-dev-tools libgl-dev
      libbenchmark-dev fonts-dejavu-core xvfb xauth)
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
