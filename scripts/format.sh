#!/usr/bin/env bash
# format.sh [--check]: formats the project's C++ files, or says which ones are not formatted and fails.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

clang_format=$(command -v clang-format-14 || command -v clang-format)
mapfile -d '' files < <(find arbora bench fanout fuzz include src tests tools examples \
  \( -name '*.cpp' -o -name '*.h' \) -print0 2>/dev/null | sort -z)
case ${1:-} in
  '') "$clang_format" -i "${files[@]}" ;;
  --check) "$clang_format" --dry-run -Werror "${files[@]}" ;;
  *)
    echo "usage: $0 [--check]" >&2
    exit 2
    ;;
esac
