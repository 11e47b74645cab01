#!/usr/bin/env bash
# Installs what the project needs on Debian 12: only what is missing, and nothing is said when nothing is.
set -euo pipefail

packages=(
  # Build
  ca-certificates ccache clang-14 cmake g++ gcc git libclang-rt-14-dev ninja-build
  # Cross build for Windows, and where it runs
  g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
  wine wine64 xvfb xauth xdotool fonts-wine
  # Libraries
  libcli11-dev libfontconfig-dev libfreetype-dev libglfw3-dev libglm-dev libstb-dev libx11-dev python3-glad
  libegl-dev libgl-dev libglu1-mesa-dev libegl1 libegl-mesa0 libgl1 libgl1-mesa-dri libglx-mesa0 fonts-dejavu-core
  # Tests, benchmarks, checks
  clang-format-14 clang-tidy-14 googletest imagemagick libbenchmark-dev tesseract-ocr
)

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ $status == installed ]] || missing+=("$package")
done
((${#missing[@]})) || exit 0

run=()
if ((EUID != 0)); then
  run=(sudo)
fi
apt_get() {
  "${run[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600 "$@"
}

echo "installing: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
install() { apt_get install -y --no-install-recommends "${missing[@]}" >"$log" 2>&1; }
# A package list that is absent or out of date is brought up to date, once.
if ! install && ! { apt_get update >"$log" 2>&1 && install; }; then
  cat "$log" >&2
  exit 1
fi
