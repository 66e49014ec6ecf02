#!/usr/bin/env bash
# Installs the Debian 12 packages that building and testing sigdbref needs, when missing.
set -euo pipefail

packages=(
    cmake ninja-build g++ make pkg-config dpkg-dev
    qtbase5-dev qt6-base-dev
    googletest libgtest-dev libgmock-dev
    doxygen
    libbenchmark-dev
    clang-14 libclang-rt-14-dev
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
    sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
