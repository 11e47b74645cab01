#!/usr/bin/env bash
# lint.sh [--tidy]: what the compiler and the formatter do not see. Every finding is printed; any finding fails.
#   - every header compiles alone, for both targets
#   - the constants of the windowless system are those of Windows
#   - no words that say that something is unfinished, no tests that do not run, no references to outside documents
#   - no system-dependent #if outside of the seam
#   - --tidy: clang-tidy over all sources (minutes)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

cmake --preset linux >/dev/null
cmake --preset windows >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
findings=0
finding() {
  echo "$*"
  findings=$((findings + 1))
}

folders=()
for folder in arbora fanout include src tests tools bench fuzz examples; do
  [[ -d $folder ]] && folders+=("$folder")
done

# Headers alone. Those of one system are compiled for that system.
check_header() {
  local header=$1 preset=$2 compiler=g++
  local includes=(-I. -Iinclude -I"build/$preset/generated" -I"build/$preset/generated/glad/include"
    -I"build/$preset/thirdparty" -I/usr/src/googletest/googletest/include)
  case $preset in
    linux) includes+=(-I/usr/include/freetype2) ;;
    windows) compiler=x86_64-w64-mingw32-g++-posix ;;
  esac
  "$compiler" -std=c++20 -Wall -Wextra -fsyntax-only "${includes[@]}" -x c++ - <<<"#include \"$header\"" \
    || echo "$header: does not compile alone ($preset)"
}
export -f check_header
while IFS= read -r header; do
  case $header in
    *_win.h) presets=(windows) ;;
    *_linux.h | src/platform/Windowless*) presets=(linux) ;;
    *) presets=(linux windows) ;;
  esac
  printf "$header\\0%s\\0" "${presets[@]}"
done < <(find "${folders[@]}" -name '*.h' | sort) >"$work/headers"
xargs -0 -r -n 2 -P "$(nproc)" bash -c 'check_header "$@"' _ <"$work/headers" >"$work/header-findings" 2>&1
if [[ -s $work/header-findings ]]; then
  finding "$(<"$work/header-findings")"
fi

# Constants of the windowless system.
{
  echo '#include "src/platform/Win32.h"'
  sed -nE 's/^inline constexpr (\w+) (\w+) = (.*);$/static_assert((\1)(\2) == (\1)(\3), "\2");/p' \
    src/platform/WindowlessConstants.h
} >"$work/constants.cpp"
asserts=$(grep -c static_assert "$work/constants.cpp")
constants=$(grep -c '^inline constexpr' src/platform/WindowlessConstants.h)
((asserts == constants)) || finding "src/platform/WindowlessConstants.h: only $asserts of $constants constants compared"
x86_64-w64-mingw32-g++-posix -std=c++20 -w -fsyntax-only -I. "$work/constants.cpp" 2>"$work/constants" \
  || finding "src/platform/WindowlessConstants.h: $(grep error "$work/constants")"

# Words.
if grep -rnIE '\b(TODO|FIXME|XXX|HACK)\b' "${folders[@]}" cmake CMakeLists.txt docs 2>/dev/null; then
  finding "words that say that something is unfinished"
fi
# A comment gives the reason itself; it does not send the reader to a document that is not here.
if grep -rnIE '\b([Ss]pec|[Ss]pecification|(Part|Section|Chapter) [0-9][0-9.]*)\b' "${folders[@]}" docs 2>/dev/null; then
  finding "references to documents outside of the repository"
fi
if grep -rnE '\b(GTEST_SKIP|DISABLED_)' tests 2>/dev/null; then
  finding "tests that do not run"
fi

# A platform is told by the file's name.
# The exceptions are types and attributes that a header needs and that the two compilers spell differently.
if grep -rnE '^\s*#\s*if.*(_WIN32|__linux__|__MINGW)' arbora fanout include src tools --include='*.cpp' --include='*.h' \
  | grep -vE '^(src/platform/Win32|arbora/base/NbLocale|arbora/base/NkDebugError)\.h:'; then
  finding "system-dependent #if outside of the seam"
fi

if [[ ${1:-} == --tidy ]]; then
  cmake --preset linux-asan >/dev/null
  find arbora fanout src tools -name '*.cpp' ! -name '*_win.cpp' -print0 | xargs -0 -r -n 1 -P "$(nproc)" \
    clang-tidy-14 --quiet --warnings-as-errors='*' -p build/linux-asan 2>/dev/null || finding "clang-tidy"
fi

((findings == 0)) || exit 1
