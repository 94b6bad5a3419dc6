#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# What run, test, bench and tour have in common: install what is missing, configure, build. Sourced, not run.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '== %s\n' "$*"; }

packages=(g++ cmake ninja-build libfmt-dev libsuitesparse-dev libmetis-dev libopenblas-pthread-dev libeigen3-dev
    libgtest-dev libgmock-dev libbenchmark-dev qt6-base-dev qt6-tools-dev qt6-tools-dev-tools
    qt6-documentation-tools qt6-svg-dev libqt6sql6-sqlite fonts-dejavu-core)

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

install_missing() {
    local missing=()
    for package in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return
    fi
    say "Installing ${missing[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# What is configured beside the preset.
build_options=()

# build PRESET [TARGET...]
build() {
    local preset=$1
    shift
    install_missing
    say "Configuring build/$preset"
    local log
    log=$(mktemp)
    cmake --preset "$preset" ${build_options[@]+"${build_options[@]}"} >"$log" 2>&1 || {
        cat "$log"
        exit 1
    }
    rm -f "$log"
    say "Building build/$preset"
    cmake --build --preset "$preset" "${@/#/--target=}"
}
