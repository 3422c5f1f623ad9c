#!/bin/sh
# Makes the Debian packages, installs them into a root of their own, and uses what is there.
# Usage: debian_packages_test.sh BUILD
# Skipped (77) where there is no dpkg to make them with.
set -eu

build=$1
command -v dpkg-shlibdeps >/dev/null || { echo "dpkg-dev is not installed"; exit 77; }
work=$(mktemp -d "${TMPDIR:-/tmp}/keyscout-packages.XXXXXX")
trap 'rm -rf "$work"' EXIT
fail() {
  echo "FAILED: $1"
  exit 1
}

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/packages" >"$work/log" 2>&1 ||
  fail "$(cat "$work/log")"
for package in keyscout libkeyscout1 libkeyscout-dev; do
  file=$(ls "$work/packages/${package}_"*.deb) || fail "no package $package"
  dpkg-deb -f "$file" >"$work/$package"
done
grep -q '^Depends:.*libc6.*libncursesw6' "$work/keyscout" || fail "$(cat "$work/keyscout")"
grep -q '^Depends:.*libstdc++6' "$work/libkeyscout1" || fail "$(cat "$work/libkeyscout1")"
grep -q '^Depends: libkeyscout1 (= 1\.[0-9.]*)$' "$work/libkeyscout-dev" ||
  fail "$(cat "$work/libkeyscout-dev")"

# An empty root has none of the packages that these depend on. Files in it belong to root, which
# others are in a name space of their own.
root=$work/root
in_root() {
  as_root=""
  [ "$(id -u)" -eq 0 ] || as_root="unshare --map-root-user"
  $as_root dpkg --root="$root" --log=/dev/null --force-not-root --force-depends \
    --force-script-chrootless "$@" >"$work/log" 2>&1 || fail "$(cat "$work/log")"
}
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$root/var/log"
: >"$root/var/lib/dpkg/status"
in_root -i "$work/packages/"*.deb

for path in share/man/man1/keyscout.1 share/bash-completion/completions/keyscout \
  share/zsh/vendor-completions/_keyscout share/fish/vendor_completions.d/keyscout.fish \
  share/doc/keyscout/examples/host/main.cpp include/keyscout/keyscout.h; do
  [ -f "$root/usr/$path" ] || fail "not installed: $path"
done
"$root/usr/bin/keyscout" lookup "$root/usr/share/keyscout/catalog" bt15 >"$work/list" ||
  fail "the installed program looks nothing up"
[ "$(wc -l <"$work/list")" -eq 9 ] || fail "listed: $(cat "$work/list")"
library=$(find "$root/usr/lib" -name 'libkeyscout.so.1')
[ "$(objdump -p "$library" | awk '$1 == "SONAME" {print $2}')" = libkeyscout.so.1 ] ||
  fail "the library's name is another"

# No file tells where it was built.
if grep -rlF -e "$build" "$root/usr/share" "$root/usr/include" "$root/usr/lib/cmake" \
  "$root/usr/lib/pkgconfig"; then
  fail "these files name the build"
fi
in_root -P libkeyscout-dev libkeyscout1 keyscout
[ -z "$(find "$root/usr" -type f 2>/dev/null)" ] || fail "left: $(find "$root/usr" -type f)"
echo "passed"
