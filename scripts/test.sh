#!/usr/bin/env bash
# Builds everything and runs every test: unit tests and the tool's corpus. With
# ORVANE_PRESET=sanitize the same runs under AddressSanitizer and UBSan.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
preset=${ORVANE_PRESET:-release}
cmake --preset "$preset" ${ORVANE_CMAKE_ARGS:-} >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)"
