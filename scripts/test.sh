#!/usr/bin/env bash
# test.sh: sets up, builds everything and runs all tests: natively, natively under sanitizers, for Windows under Wine,
# and each fuzzer for a minute. Needs no display. The last lines are the runners' own.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

fuzz_seconds=${FUZZ_SECONDS:-60}
presets=(linux linux-asan windows)

scripts/setup.sh
for preset in "${presets[@]}"; do
  echo "building $preset"
  build_preset "$preset"
done

failed=()

# Prints the closing lines of the test programs and of ctest; everything when a test failed.
run_tests() {
  local preset=$1 log=build/$1-tests.log
  if ! ctest --preset "$preset" --verbose >"$log" 2>&1; then
    failed+=("$preset tests")
    cat "$log"
    return
  fi
  awk '/^ *Start +[0-9]+:/ { name = $NF }
    /^[0-9]+: \[  PASSED  \] [1-9]/ { sub(/^[0-9]+: /, ""); printf "  %-14s %s\n", name, $0 }
    /tests passed/' "$log"
}

# Runs one fuzzer on its seeds; new inputs stay in the build folder, the seeds are only read.
run_fuzzer() {
  local program=$1 name=${1##*/fuzz_}
  local work=build/fuzz/$name
  local seeds=()
  [[ -d fuzz/corpus/$name ]] && seeds=("fuzz/corpus/$name")
  mkdir -p "$work"
  LSAN_OPTIONS=suppressions=tests/support/lsan.supp:print_suppressions=0:use_tls=0 \
    "$program" -max_total_time="$fuzz_seconds" -timeout=20 -rss_limit_mb=3072 -print_final_stats=1 \
    -artifact_prefix="$work-" "$work" "${seeds[@]}" >"$work.log" 2>&1
}

for preset in "${presets[@]}"; do
  echo "testing $preset"
  run_tests "$preset"
done

shopt -s nullglob
fuzzers=()
for program in build/linux-asan/bin/fuzz_*; do
  [[ -x $program && ! -d $program ]] && fuzzers+=("$program")
done
echo "fuzzing: ${#fuzzers[@]} programs, $fuzz_seconds s each"
# As many at a time as there are processors.
for ((first = 0; first < ${#fuzzers[@]}; first += $(nproc))); do
  group=("${fuzzers[@]:first:$(nproc)}")
  jobs=()
  for program in "${group[@]}"; do
    run_fuzzer "$program" &
    jobs+=($!)
  done
  for i in "${!group[@]}"; do
    name=${group[i]##*/fuzz_}
    if wait "${jobs[i]}"; then
      echo "  $name: $(grep -E '^Done [0-9]+ runs' "build/fuzz/$name.log" || true)"
    else
      failed+=("fuzzer $name")
      tail -n 60 "build/fuzz/$name.log"
    fi
  done
done

if ((${#failed[@]})); then
  printf 'failed: %s\n' "${failed[@]}" >&2
  exit 1
fi
echo "all tests passed"
