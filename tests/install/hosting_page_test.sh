#!/bin/sh
# Does what the hosting page says, line by line: installs what was built, makes a host in an empty
# folder and runs it. Then builds the host of the first page, and every header that was installed.
# Usage: hosting_page_test.sh SOURCE BUILD COMPILER COMPILER-FLAGS
set -eu

source=$1 build=$2 CXX=$3 CXXFLAGS=$4
export CXX CXXFLAGS
work=$(mktemp -d "${TMPDIR:-/tmp}/keyscout-hosting.XXXXXX")
trap 'rm -rf "$work"' EXIT
fail() {
  echo "FAILED: $1"
  exit 1
}
# The indented lines of one section of a page.
lines_of() { sed -n "/^## $2\$/,/^## /s/^    //p" "$source/$1"; }

mkdir "$work/home" "$work/empty"
HOME=$work/home
export HOME
# The page builds in build/demo; what the tests were built in will do.
lines_of docs/hosting.md "Ten minutes" | grep -v '^scripts/demo' |
  sed "s|build/demo|$build|g" >"$work/commands"
[ "$(grep -c '^cmake ' "$work/commands")" -eq 3 ] || fail "not the commands: $(cat "$work/commands")"
(cd "$work/empty" && sh -eu "$work/commands") >"$work/output" 2>&1 || fail "$(cat "$work/output")"
[ "$(tail -n 9 "$work/output" | head -n 1)" = "BT150-16" ] || fail "not listed: $(cat "$work/output")"

# Nothing but headers under one folder, each of which compiles, and none of them any test's.
prefix=$HOME/keyscout
[ "$(ls "$prefix/include")" = keyscout ] || fail "in include: $(ls "$prefix/include")"
(cd "$prefix/include" && find keyscout -name '*.h') | sort >"$work/headers"
[ "$(wc -l <"$work/headers")" -gt 20 ] || fail "few headers: $(cat "$work/headers")"
if grep -e win32 -e apps -e server -e procedures "$work/headers"; then
  fail "headers that no host needs"
fi
sed 's/.*/#include <&>/' "$work/headers" >"$work/headers.cpp"
"$CXX" -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I "$prefix/include" "$work/headers.cpp"

# The download of the first page is one.
lines_of README.md "A catalog of your own" >"$work/download"
"$HOME/keyscout/bin/keyscout" pack "$work/download" "$work/catalog" >/dev/null
"$HOME/keyscout/bin/keyscout" lookup "$work/catalog" ab-2 >"$work/list"
[ "$(tr -s ' \n' '  ' <"$work/list")" = "AB-200/X ARVIK CD.5 ELMARK " ] ||
  fail "listed: $(cat "$work/list")"

# The host of the first page is ten lines, and tells what is wrong with a catalog. That one has no
# download of the name that it is told.
lines_of README.md "A host in ten lines" >"$work/ten_lines"
[ "$(wc -l <"$work/ten_lines")" -eq 10 ] || fail "not ten lines: $(cat "$work/ten_lines")"
{
  printf '#include <iostream>\n#include <keyscout/keyscout.h>\nusing namespace keyscout;\n'
  sed "s|/srv/catalog|$work/catalog|" "$work/ten_lines"
} >"$work/ten_lines.cpp"
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name keyscout.pc)")
export PKG_CONFIG_PATH
# shellcheck disable=SC2046,SC2086 -- flags are words
"$CXX" -std=c++20 $CXXFLAGS -o "$work/ten_lines.out" "$work/ten_lines.cpp" \
  $(pkg-config --cflags --libs keyscout) || fail "the ten lines do not compile"
LD_LIBRARY_PATH=$(pkg-config --variable libdir keyscout) "$work/ten_lines.out" \
  2>"$work/refusal" || fail "the ten lines end with $?"
grep -q "download file does not exist" "$work/refusal" || fail "not told: $(cat "$work/refusal")"
echo "passed"
