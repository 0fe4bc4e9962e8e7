#!/usr/bin/env bash
# Installs a build into a temporary prefix, moves that prefix elsewhere (an install must not
# depend on where it was first put), and builds the consumer in this folder against it twice:
# through find_package and through pkg-config. Both programs must print what the installed tool
# prints for the same document.
#
#   tests/find-package/run.sh BUILD_DIR VERSION [CXX]
#
# CTest runs it with the build's own version and compiler (ctest -R find-package).
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
source_dir=$(cd "$here/../.." && pwd)
build_dir=$(cd "${1:?usage: run.sh BUILD_DIR VERSION [CXX]}" && pwd)
version=${2:?usage: run.sh BUILD_DIR VERSION [CXX]}
cxx=${3:-$(sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' "$build_dir/CMakeCache.txt")}
document=$source_dir/examples/border.json

work=$(mktemp -d "${TMPDIR:-/tmp}/orvane-find-package.XXXXXX")
trap 'rm -rf "$work"' EXIT

fail() {
  echo "FAIL: $*" >&2
  exit 1
}

echo "== install $build_dir"
cmake --install "$build_dir" --prefix "$work/staged" >"$work/install.log" ||
  { cat "$work/install.log" >&2; fail "cmake --install"; }
mv "$work/staged" "$work/prefix"
prefix=$work/prefix

# Every installed header must compile with nothing but the installed headers on the path: no
# installed header may include one that is not installed.
find "$prefix/include" -name '*.hpp' | sort | sed 's|.*/include/\(.*\)|#include <\1>|' \
  >"$work/all-headers.cpp"
[ -s "$work/all-headers.cpp" ] || fail "no headers installed"
"$cxx" -std=c++20 -fsyntax-only -I"$prefix/include" "$work/all-headers.cpp" ||
  fail "the installed headers do not compile on their own"

tool=$prefix/bin/orvane
[ "$("$tool" --version)" = "orvane $version" ] || fail "installed tool: $("$tool" --version)"
expected=$("$tool" decode Border "$document")
[ -n "$expected" ] || fail "the installed tool printed nothing"

echo "== find_package"
cmake -S "$here" -B "$work/cmake-build" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" \
  -DCMAKE_PREFIX_PATH="$prefix" >"$work/configure.log" ||
  { cat "$work/configure.log" >&2; fail "configure with find_package"; }
found=$(sed -n 's/^Orvane_DIR:PATH=//p' "$work/cmake-build/CMakeCache.txt")
case "$found" in
  "$prefix"/*) ;;
  *) fail "find_package found Orvane in '$found', not in the temporary prefix" ;;
esac
cmake --build "$work/cmake-build" || fail "build with find_package"
from_cmake=$("$work/cmake-build/app" "$document") || fail "the find_package build failed to run"
[ "$from_cmake" = "$expected" ] ||
  fail "find_package build printed '$from_cmake', the tool '$expected'"
echo "$from_cmake"

echo "== pkg-config"
export PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name orvane.pc)")
[ "$(pkg-config --variable=pcfiledir orvane)" = "$PKG_CONFIG_PATH" ] ||
  fail "pkg-config found orvane.pc elsewhere than the temporary prefix"
[ "$(pkg-config --modversion orvane)" = "$version" ] ||
  fail "orvane.pc gives version $(pkg-config --modversion orvane)"
flags=$(pkg-config --static --cflags --libs orvane) || fail "pkg-config --static orvane"
case " $flags " in
  *" -std="*) fail "orvane.pc imposes a language standard: $flags" ;;
esac
echo "pkg-config --static --cflags --libs orvane: $flags"
# shellcheck disable=SC2086 # the flags are words
"$cxx" -std=c++20 -Wall -Wextra -Wpedantic "$here/main.cpp" $flags -o "$work/app-pc" ||
  fail "build with pkg-config"
# A shared build is found at run time as any library in a private prefix is.
from_pc=$(LD_LIBRARY_PATH="$(pkg-config --variable=libdir orvane)${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}" \
  "$work/app-pc" "$document") || fail "the pkg-config build failed to run"
[ "$from_pc" = "$expected" ] || fail "pkg-config build printed '$from_pc', the tool '$expected'"
echo "$from_pc"
echo "ok"
