#!/usr/bin/env bash
# Installs the Debian packages the build, the tests, the demo and the benchmarks
# need; does nothing for packages already present. WIN_BENCH_PEERS=1 adds the
# peer libraries and terminals of the benchmark comparisons, WIN_COVERAGE=1 the coverage report tool.
set -euo pipefail
packages=(
    build-essential cmake ninja-build pkg-config clang libclang-rt-14-dev
    libcairo2-dev libfontconfig-dev libfreetype-dev libicu-dev libcups2-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    fonts-dejavu-core fonts-dejavu-extra fonts-liberation2
    poppler-utils dialog less vim procps cups-daemon
    libxcb1-dev xvfb xdotool xclip xterm x11-utils xrestop openbox
)
if [ "${WIN_BENCH_PEERS:-0}" = 1 ]; then
    packages+=(libvterm-dev libtsm-dev libxcb-xtest0-dev xterm rxvt-unicode stterm mlterm xclip
        x11-apps lxterminal eterm qterminal alacritty kitty zutty libgl1-mesa-dri)
fi
if [ "${WIN_COVERAGE:-0}" = 1 ]; then
    packages+=(gcovr)
fi
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "installing: ${missing[*]}"
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
fi
