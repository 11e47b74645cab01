#!/usr/bin/env bash
# demo.sh: sets up, builds, renders the example scene and says where the picture is. With a display it also opens the
# scene in a window.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

scripts/setup.sh
build_preset linux --target panelix

mkdir -p build/demo
build/linux/bin/panelix render examples/scene.arb -o build/demo/scene.png
echo "picture: $root/build/demo/scene.png"
if [[ -n ${DISPLAY:-} ]]; then
  build/linux/bin/panelix show examples/scene.arb
fi
