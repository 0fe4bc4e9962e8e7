#!/usr/bin/env bash
# Builds the tool and decodes the shipped example document with it.
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
