# shellcheck shell=bash
# What run, check, .ci/run and the scripts of this folder share: sentences, packages, builds. Sourced, never run
# by itself. The caller has set -euo pipefail.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
# The name that messages begin with, as the user typed it.
me=$0

# The folder of the release build. A Qt that the caller names, LUMIPAD_QT=5 or 6, has folders of its own.
suffix=${LUMIPAD_QT:+-qt$LUMIPAD_QT}
release=build/release$suffix

say() { printf '%s\n' "$*"; }

# Ends the script with one sentence on the error output.
fail() {
    printf '%s: %s\n' "$me" "$*" >&2
    exit 1
}

[[ ${LUMIPAD_QT:-} =~ ^[56]?$ ]] || fail "LUMIPAD_QT is \"$LUMIPAD_QT\": it takes 5, 6, or nothing."

have() { command -v "$1" >/dev/null 2>&1; }

on_macos() { [[ $(uname -s) == Darwin ]]; }

# What Qt 5 or 6 is installed as.
qt_package() {
    case $1 in
    5) if have apt-get; then say qtbase5-dev; else say qt@5; fi ;;
    *) if have apt-get; then say qt6-base-dev; else say qt; fi ;;
    esac
}

is_installed() {
    if have apt-get; then
        # shellcheck disable=SC2016 # ${…} is dpkg-query's own, not the shell's
        [[ " $(dpkg-query -W -f '${db:Status-Status} ' "$1" 2>/dev/null)" == *" installed "* ]]
    else
        brew list --versions "$1" >/dev/null 2>&1
    fi
}

can_be_had() {
    if have apt-get; then
        [[ -n $(apt-cache madison "$1" 2>/dev/null) ]]
    else
        brew info "$1" >/dev/null 2>&1
    fi
}

# The Qt to build with: the one that the caller names, else the one that is installed, Qt 5 where both are. Where
# neither is, Qt 5, or Qt 6 if that is the only one to be had.
qt_version() {
    local version
    [[ -z ${LUMIPAD_QT:-} ]] || { say "$LUMIPAD_QT" && return; }
    for version in 5 6; do
        if is_installed "$(qt_package $version)"; then say $version && return; fi
    done
    if ! can_be_had "$(qt_package 5)" && can_be_had "$(qt_package 6)"; then say 6; else say 5; fi
}

# The packages of one purpose, for apt-get. The fonts are needed because the window asks for Arial, and a machine
# without any font shows no letter at all; Liberation Sans takes Arial's place, width for width. The tests that drive the
# mouse come with one that reads the manual.
apt_packages() {
    case $1 in
    build) say cmake ninja-build g++ "$(qt_package "$(qt_version)")" fontconfig fonts-liberation ;;
    mouse) say libx11-dev libxtst-dev xvfb poppler-utils ;;
    lint) say git clang-format clang-tidy clazy shellcheck ;;
    package) say dpkg-dev file lintian desktop-file-utils appstream debootstrap ;;
    images) say librsvg2-bin icnsutils icoutils ;;
    # The fuzzer is a part of clang's runtime, which clang does without.
    fuzz) say clang libclang-rt-dev ;;
    *) fail "there is no list of packages for \"$1\"." ;;
    esac
}

brew_packages() {
    case $1 in
    build) say cmake ninja "$(qt_package "$(qt_version)")" ;;
    # The mouse is driven through X, which macOS does not have.
    mouse) ;;
    images) say librsvg libicns icoutils ;;
    lint) fail "the lint tools are installed from the packages of Debian and Ubuntu only." ;;
    package) fail "packages for Debian are made on Debian." ;;
    fuzz) fail "the fuzzer is installed from the packages of Debian and Ubuntu only." ;;
    *) fail "there is no list of packages for \"$1\"." ;;
    esac
}

# need_space FOLDER MEGABYTES WHAT: stops when the disk of the folder has less room than what needs.
need_space() {
    local free
    free=$(df -Pk "$1" | awk 'NR == 2 { print int($4 / 1024) }')
    [[ ${free:-0} -ge $2 ]] || fail "$3 needs $2 MB on the disk of $1, and only ${free:-0} MB are free."
}

# Temporary files lie in the build folder where the usual place for them takes none: those of the compiler and of the
# shell, and the copy of a show that the program makes to read it.
use_writable_tmp() {
    [[ ! -w ${TMPDIR:-/tmp} ]] || return 0
    export TMPDIR=$root/build/tmp
    { mkdir -p "$TMPDIR" 2>/dev/null && [[ -w $TMPDIR ]]; } ||
        fail "neither the folder for temporary files nor $root/build can be written."
}

# install_packages PURPOSE...: installs what is missing for the purposes. When nothing is missing it asks neither
# for a password nor for the network.
install_packages() {
    if have apt-get && have dpkg-query; then
        install_with_apt "$@"
    elif have brew; then
        install_with_brew "$@"
    else
        fail "neither apt-get (Debian, Ubuntu) nor brew (macOS) is here to install what Lumipad is built with."
    fi
}

# find_missing LISTER PURPOSE...: puts into the array missing what of the packages for the purposes is not installed.
find_missing() {
    local lister=$1 purpose package wanted
    shift
    missing=()
    for purpose in "$@"; do
        wanted=$("$lister" "$purpose") || exit 1
        for package in $wanted; do
            is_installed "$package" || missing+=("$package")
        done
    done
}

install_with_apt() {
    local missing as_root=()
    find_missing apt_packages "$@"
    ((${#missing[@]} > 0)) || return 0

    if [[ $(id -u) -ne 0 ]]; then
        have sudo || fail "to install ${missing[*]} it must run as root or find sudo, and neither is so."
        as_root=(sudo)
    fi
    need_space / 1500 "installing ${missing[*]}"
    say "Installing ${missing[*]}, which takes up to 1500 MB"
    # Old lists may still do, so only a failed install is the end. /dev/null: no question waits for an answer.
    "${as_root[@]}" apt-get update -qq </dev/null || say "The package lists could not be refreshed; going on with those at hand."
    # Only now it is known which Qt can be had.
    find_missing apt_packages "$@"
    # What apt-get says of the size, in its own words.
    LC_ALL=C apt-get install --assume-no --no-install-recommends "${missing[@]}" 2>/dev/null </dev/null |
        grep -E '^(Need to get|After this operation)' || true
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "${missing[@]}" </dev/null ||
        fail "apt-get could not install ${missing[*]}; its own lines above say why."
}

install_with_brew() {
    local missing
    find_missing brew_packages "$@"
    ((${#missing[@]} > 0)) || return 0
    need_space / 3000 "installing ${missing[*]}"
    say "Installing ${missing[*]}, which takes up to 3000 MB"
    brew install "${missing[@]}" </dev/null || fail "brew could not install ${missing[*]}; its own lines above say why."
}

# is_current PROGRAM: whether the program is there, was built in this very place, and nothing that it is made of has
# changed since build_current began to build it. Folders count too: a file that was added or taken away makes its folder
# newer.
is_current() {
    local cache=$root/$release/CMakeCache.txt current=$root/$release/current
    [[ -x $1 && -f $cache && -f $current ]] || return 1
    grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache" || return 1
    [[ -z $(find "$root"/{CMakeLists.txt,cmake,common,show,padspage,controller,project,app,resources} \
        -newer "$current" -print -quit) ]]
}

# build_current: builds the program in the release folder. Not every change makes a new program, so a file of its own tells
# when the build began.
build_current() {
    { mkdir -p "$root/build" 2>/dev/null && touch "$root/build/begun"; } || fail "$root/build cannot be written."
    build "$release" -DCMAKE_BUILD_TYPE=Release lumipad
    mv "$root/build/begun" "$root/$release/current"
}

# build FOLDER OPTIONS TARGET...: configures the build folder (relative to the project) and builds the targets.
# OPTIONS is one string of cmake options, split at blanks.
build() {
    local folder=$root/$1 options made_for qt
    qt=$(qt_version) || exit 1
    read -ra options <<<"$2"
    shift 2
    options+=("-DLUMIPAD_QT=$qt")
    if on_macos; then
        # Homebrew keeps Qt 5 out of the way of newer ones, where cmake does not look by itself.
        options+=("-DCMAKE_PREFIX_PATH=$(brew --prefix "$(qt_package "$qt")")")
    fi
    # A moved or copied checkout brings a build folder that cmake refuses, as it belongs to the old place; so does one
    # whose Qt is gone.
    if [[ -f $folder/CMakeCache.txt ]]; then
        made_for=$(sed -nE 's/^(CMAKE_HOME_DIRECTORY|LUMIPAD_QT_BEFORE):INTERNAL=//p' "$folder/CMakeCache.txt")
        [[ $made_for == "$root"$'\n'"$qt" ]] || rm -rf "$folder"
    fi
    # What is built already needs little more.
    [[ -f $folder/CMakeCache.txt ]] || need_space "$root" 1000 "building Lumipad"
    cmake -S "$root" -B "$folder" -G Ninja -DLUMIPAD_WERROR=ON "${options[@]}" ||
        fail "cmake could not prepare the build; its own lines above say why."
    cmake --build "$folder" --target "$@" || fail "the build failed; the compiler's lines above say why."
}

# run_tests FOLDER: every test of a build folder, ending with ctest's summary. No test found counts as a failure.
run_tests() {
    local jobs
    jobs=$(getconf _NPROCESSORS_ONLN 2>/dev/null || say 2)
    ctest --test-dir "$root/$1" --output-on-failure --no-tests=error -j "$jobs"
}

use_writable_tmp
