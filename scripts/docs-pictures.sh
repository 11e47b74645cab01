#!/usr/bin/env bash
# docs-pictures.sh: makes the pictures of the tutorial and of the guide anew, with the programs that they tell about.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

scripts/setup.sh
build_preset linux --target panelix example_pump
build_preset windows --target panelix

# Both forms of a dialog.
picture_forms() {
  scripts/wine-run.sh build/windows/bin/panelix.exe render "$1" -o "$2-2d.png" --form 2d
  build/linux/bin/panelix render "$1" -o "$2-3d.png" --background 1,1,1
}

images=docs/images/tutorial
mkdir -p "$images"
for step in 1-label 2-components 3-layout; do picture_forms "examples/pump/$step.arb" "$images/$step"; done
picture_forms examples/dialogs/export-options.arb docs/images/acting
build/linux/bin/panelix render examples/pump/3-layout.arb -o "$images/5-dark.png" --skin dark --background 1,1,1
build/linux/bin/example_pump --picture "$images/4-scene.png"
# As few bytes as possible, and none that tell when it was.
mogrify -alpha off -strip -define png:compression-level=9 -define png:exclude-chunks=date,time "$images"/*.png docs/images/acting-*.png
