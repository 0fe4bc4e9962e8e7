#!/usr/bin/env bash
# Builds the tool, decodes the shipped example document with it, draws the example screen, and
# writes the example project's hand-off viewer, ready to open in a browser.
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
echo "== orvane site Project examples/project.json --output build/release/example-site"
build/release/orvane site Project examples/project.json --output build/release/example-site
echo
echo "The example project, clickable: open build/release/example-site/index.html"
echo "(or serve it, following changes: build/release/orvane serve Project examples/project.json)"
