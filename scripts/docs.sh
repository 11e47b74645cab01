#!/usr/bin/env bash
# docs.sh: writes the documentation that is made from the program itself.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

build_preset linux --target panelix
build/linux/bin/panelix describe >docs/vocabulary.md
