#!/usr/bin/env bash
# demo.sh: sets up, builds, and opens an example dialog in both forms of one object, as a panel in a scene and as a
# native window, the latter under Wine. Pictures of the examples in both forms are left in build/demo; without a display
# that is all.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

examples=(export-options nested-layout)

scripts/setup.sh
build_preset linux --target panelix
build_preset windows --target panelix

mkdir -p build/demo
build/linux/bin/panelix render examples/scene.arb -o build/demo/scene.png
for example in "${examples[@]}"; do
  file=examples/dialogs/$example.arb
  build/linux/bin/panelix render "$file" -o "build/demo/$example-3d.png" --form 3d
  scripts/wine-run.sh build/windows/bin/panelix.exe render "$file" -o "build/demo/$example-2d.png" --form 2d
done
printf 'picture: %s\n' "$root"/build/demo/*.png

[[ -n ${DISPLAY:-} ]] || exit 0
echo "open: ${examples[0]}.arb; what you do is printed below, until you close a window"
scripts/wine-run.sh --here build/windows/bin/panelix.exe show "examples/dialogs/${examples[0]}.arb" --form both
