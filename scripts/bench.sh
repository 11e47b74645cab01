#!/usr/bin/env bash
# bench.sh [FILTER]: builds and runs the benchmarks, or those whose name matches the regular expression, and prints one
# table: the name, the median processor time of five runs, and their standard deviation as a part of it.
# bench.sh --windows: the same for what measures native windows, under Wine: the least and the median time of nine runs
# by the clock, and what the bare calls take beside it.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

scripts/setup.sh

if [[ ${1:-} == --windows ]]; then
  cmake --preset windows -DPANELIX_BUILD_BENCHMARKS=ON >/dev/null
  build_preset windows --target bench_label bench_rows_win bench_acting_win
  export PANELIX_SKINS_DIR=data/Panelix/skins
  for program in label rows_win acting_win; do
    scripts/wine-run.sh "build/windows/bin/bench_$program.exe"
  done
  exit
fi
build_preset linux

shopt -s nullglob
programs=(build/linux/bin/bench_*)
if ((${#programs[@]} == 0)); then
  echo "there are no benchmarks" >&2
  exit 1
fi
results=$(mktemp)
trap 'rm -f "$results"' EXIT
for program in "${programs[@]}"; do
  # One processor: neighbours on the others do not wander in.
  taskset -c 0 "$program" --benchmark_filter="${1:-.}" --benchmark_repetitions=5 --benchmark_min_time=0.2 \
    --benchmark_report_aggregates_only=true --benchmark_format=csv 2>/dev/null \
    | awk -v program="${program##*/bench_}" '/^"/ { print program "," $0 }' >>"$results"
done
awk -F, '
  { gsub(/"/, "", $2) }
  $2 ~ /_median$/ { key = $1 "," substr($2, 1, length($2) - 7); order[++count] = key; time[key] = $5; unit[key] = $6 }
  $2 ~ /_stddev$/ { key = $1 "," substr($2, 1, length($2) - 7); deviation[key] = $5 }
  END {
    printf "%-12s %-48s %14s %8s\n", "program", "benchmark", "median", "spread"
    for (i = 1; i <= count; i++) {
      key = order[i]
      split(key, part, ",")
      printf "%-12s %-48s %11.2f %-2s %6.1f %%\n", part[1], part[2], time[key], unit[key], 100 * deviation[key] / time[key]
    }
  }' "$results"
