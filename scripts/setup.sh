#!/usr/bin/env bash
# Installs what building and testing need on Debian 12, skipping what is already there.
# Chromium and a font are for the tests that look at drawings the way a person would.
set -euo pipefail

packages=(g++ cmake ninja-build pkg-config ccache
          libsimdjson-dev libutf8proc-dev liburiparser-dev libcli11-dev
          libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev rapidjson-dev doxygen
          chromium fonts-dejavu-core)
# The viewer's server, and its tests in a real browser driven from Debian's own Python.
packages+=(libcpp-httplib-dev zlib1g-dev chromium-driver python3-selenium)
# Python's jsonschema checks the tool's schemas against documents.
packages+=(python3-jsonschema)
# The Python module (pybind11), its tests (pytest), the batch example's Dask and the JSON
# library the bench compares with.
packages+=(pybind11-dev python3-pybind11 python3-dev python3-pytest python3-dask python3-distributed python3-ujson)
[ "${ORVANE_WITH_CLANG:-0}" = 1 ] && packages+=(clang libclang-rt-14-dev)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo=""
  [ "$(id -u)" = 0 ] || sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
