# Sourced by the other scripts: the checkout's root, and a place for caches where the user has no home.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
if [[ ! -d ${HOME:-} || ! -w ${HOME:-} ]]; then
  mkdir -p build/home
  export HOME=$root/build/home
fi

# The preset's build, up to date. Quiet unless something is wrong.
build_preset() {
  local preset=$1
  shift
  local log=build/$preset.log
  mkdir -p build
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" "$@"; } >"$log" 2>&1; then
    cat "$log" >&2
    echo "the $preset build failed" >&2
    return 1
  fi
}
