#!/usr/bin/env bash
# Installs what building and testing CommandSystem needs on Debian 12, and nothing that is
# already there. Run as root or with sudo available.
set -euo pipefail

packages=(
    cmake ninja-build g++ clang-14 libclang-rt-14-dev
    qt6-base-dev qt6-base-dev-tools qt6-l10n-tools
    qtbase5-dev qtbase5-dev-tools qttools5-dev-tools
    libboost-dev libbenchmark-dev libxml2-utils
    doxygen dpkg-dev pkgconf
)

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" \
        || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
