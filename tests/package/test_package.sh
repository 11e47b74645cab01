#!/usr/bin/env bash
# test_package.sh BUILD COMPILER [CMAKE_ARGUMENT...]: installs a build, moves it somewhere else, and uses it as another
# project does: the example export-options is configured by itself, built and run. The arguments are for configuring it.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$1 compiler=$2
shift 2
work=$build/package-test
prefix=$work/moved
picture=$work/picture.png

fail() {
  echo "$*" >&2
  exit 1
}

# Runs an installed program, or one that needs the installed libraries. It has to be content and say nothing.
run_quietly() {
  local program=$1 said
  shift
  if [[ -f $program.exe ]]; then
    said=$(WINEPATH="Z:${prefix//\//\\}\\bin" "$root/scripts/wine-run.sh" "$program.exe" "$@" 2>&1) || fail "$program: $said"
  else
    said=$("$program" "$@" 2>&1) || fail "$program: $said"
  fi
  [[ -z $said ]] || fail "$program: $said"
}

rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/installed" >"$work/install.log"
mv "$work/installed" "$prefix"
if grep -rIl -e "$root" "$prefix"; then
  fail "these files name the folder that they were made in"
fi

# All headers, with nothing else to include.
(cd "$prefix/include/panelix" && find . -name '*.h' | sort | sed 's,^\./\(.*\),#include "\1",') >"$work/headers.cpp"
"$compiler" -std=c++20 -fsyntax-only -I"$prefix/include/panelix" "$work/headers.cpp"

cmake -S "$root/examples/export-options" -B "$work/example" -G Ninja -DPanelix_DIR="$prefix/lib/cmake/Panelix" \
  -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror" "$@" >"$work/configure.log"
cmake --build "$work/example" >"$work/build.log" || fail "$(<"$work/build.log")"

cd "$work"
cp "$root/examples/dialogs/export-options.arb" .
run_quietly "$prefix/bin/panelix" render export-options.arb -o installed-program.png
run_quietly "$work/example/export-options" --picture "${picture##*/}"
read -r red green blue < <(convert "$picture" -depth 8 -crop 1x1+125+180 rgb:- | od -An -tu1)
((red > 2 * blue && red > green && green > blue)) || fail "no orange ball in $picture: $red $green $blue"
read -r red green blue < <(convert "$picture" -depth 8 -crop 1x1+405+75 rgb:- | od -An -tu1)
((blue > 200 && red < blue && red == green)) || fail "no panel in $picture: $red $green $blue"
