#!/bin/sh
# What all commands of the program have in common.
# Usage: command_line_test.sh KEYSCOUT SOURCE
set -eu

keyscout=$1 source=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/keyscout-command-line.XXXXXX")
trap 'rm -rf "$work"' EXIT
fail() {
  echo "FAILED: $1"
  exit 1
}
# Runs the program; its exit status and what it wrote are then in $status, out and err.
run() {
  status=0
  "$keyscout" "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
}
says() { grep -qF -e "$2" "$work/$1" || fail "not in $1: $2"; }

commands=$("$keyscout" --help | sed -n '/^Subcommands:/,$s/^  \([a-z]*\) .*/\1/p')
[ "$(echo "$commands" | wc -l)" -ge 4 ] || fail "the commands are not listed: $commands"
for command in $commands; do
  run "$command" --help
  [ "$status" -eq 0 ] || fail "$command --help exits with $status"
  says out "Example:"
  says out "keyscout $command"
  run "$command" --version
  [ "$status" -eq 0 ] || fail "$command --version exits with $status"
  says out "keyscout 1"
  run "$command" --no-such-option
  [ "$status" -eq 2 ] || fail "$command exits with $status for an unknown option"
  [ ! -s "$work/out" ] || fail "$command complains on the standard output"
  says err "keyscout $command --help"

  # The man page and the completion know every command and every option.
  options=$("$keyscout" "$command" --help | grep -o -e '--[a-z-]*' | sort -u)
  grep -q "^.SS keyscout $command" "$source/man/keyscout.1" || fail "no man page for $command"
  for option in $options; do
    sed 's/\\-/-/g' "$source/man/keyscout.1" | grep -q -e "$option" || fail "man page: $option"
    grep -q -e "$option" "$source/completions/keyscout.bash" || fail "completion: $option"
  done
done

run nosuch
[ "$status" -eq 2 ] || fail "an unknown command exits with $status"
says err "there is no command nosuch"

# This program is none of Windows.
run play --widgets win32
[ "$status" -eq 2 ] || fail "real widgets that are not there end play with $status"
says err "was not built for Windows"

# A reader that has gone ends a long list of findings without a word.
mkdir "$work/catalog"
printf '%0250d\r\n' 0 >"$work/catalog/catindex.txt"
yes short | head -n 100000 >"$work/catalog/0000000000.txt"
("$keyscout" check "$work/catalog" 2>"$work/err" || echo $? >"$work/status") | head -n 1 >"$work/out"
[ -s "$work/out" ] || fail "nothing was written before the reader left"
[ ! -s "$work/err" ] || fail "said to nobody: $(cat "$work/err")"
[ "$(cat "$work/status")" -eq 141 ] || fail "a broken pipe ends check with $(cat "$work/status")"
echo "passed"
