#!/usr/bin/env bash
# Builds the tool, decodes the shipped example document with it and draws the example screen.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target orvane_tool
example=${1:-examples/snapshot.json}
type=${2:-Snapshot}
echo "== orvane decode $type $example"
build/release/orvane decode "$type" "$example"
echo "== orvane dump $type $example --pretty"
build/release/orvane dump "$type" "$example" --pretty
echo "== orvane render Snapshot examples/trail-list.json > build/release/trail-list.svg"
build/release/orvane render Snapshot examples/trail-list.json > build/release/trail-list.svg
echo "drawn: build/release/trail-list.svg (open it in a browser; examples/trail-list.png shows it)"
