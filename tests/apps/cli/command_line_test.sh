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
[ "$(echo "$commands" | wc -l)" -ge 5 ] || fail "the commands are not listed: $commands"
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

  # The man page and the completions know every command and every option.
  options=$("$keyscout" "$command" --help | grep -o -e '--[a-z][a-z-]*' | sort -u)
  echo "$options" >>"$work/options"
  grep -q "^.SS keyscout $command" "$source/man/keyscout.1" || fail "no man page for $command"
  for option in $options; do
    sed 's/\\-/-/g' "$source/man/keyscout.1" | grep -q -e "$option" || fail "man page: $option"
    for shell in bash zsh; do
      grep -q -e "$option" "$source/completions/keyscout.$shell" || fail "$shell: $option"
    done
    grep -q -e "-l ${option#--}" "$source/completions/keyscout.fish" || fail "fish: $option"
  done
done
# And they promise no option that there is not.
for page in man/keyscout.1 completions/keyscout.bash completions/keyscout.zsh; do
  for option in $(sed 's/\\-/-/g' "$source/$page" | grep -o -e '--[a-z][a-z-]*' | sort -u); do
    grep -qxF -e "$option" "$work/options" || fail "$page promises $option"
  done
done

# Help is what a person gets who does not know what to say.
run --help
cp "$work/out" "$work/help"
run
[ "$status" -eq 0 ] || fail "the program alone exits with $status"
cmp -s "$work/out" "$work/help" || fail "the program alone shows: $(cat "$work/out")"
run help
[ "$status" -eq 0 ] || fail "help exits with $status"
for command in $commands; do says out "  $command "; done
run help lookup
says out "keyscout lookup [OPTIONS] DIR TEXT"
says out "--count"

# Slips are told with what was likely meant.
run nosuch
[ "$status" -eq 2 ] || fail "an unknown command exits with $status"
says err "there is no command nosuch"
run lokup
says err "there is no command lokup; did you mean lookup?"
run help chekc
[ "$status" -eq 2 ] || fail "help for an unknown command exits with $status"
says err "did you mean check?"
run lookup --jsno
says err "keyscout lookup: there is no option --jsno; did you mean --json?"

# Numbers out of range are refused, however large.
for arguments in "pack --lines 99999999999999999999 a b" "pack --lines 0 a b" \
  "lookup --count 99999999999999999999 a b" "lookup --count 1000 a b" "lookup --count 010 a b"; do
  run $arguments
  [ "$status" -eq 2 ] || fail "$arguments exits with $status"
  says err "is no whole number from 1 to"
done

# What could not be understood is told with its line; every answer where that is asked for.
printf '# first\n\n{"op":"shared"}\nnonsense\n' >"$work/script"
run play "$work/script"
[ "$status" -eq 1 ] || fail "a malformed command ends play with $status"
says out '"malformed":"line 4: '
if grep -q '"line":' "$work/out"; then fail "answers have a key that nobody asked for"; fi
run play --line-numbers "$work/script"
says out ',"line":3}'
says out ',"line":4}'

# The man page knows every command of play.
operations=$(grep -o '{"[a-z.]*", &ScriptedHost' "$source/src/apps/cli/play/scripted_host.cpp" |
  cut -d '"' -f 2)
[ "$(echo "$operations" | wc -l)" -ge 20 ] || fail "the commands of play were not found"
for operation in $operations; do
  grep -q "^\.B $operation\b" "$source/man/keyscout.1" || fail "man page: play: $operation"
done

# This program is none of Windows.
run play --widgets win32
[ "$status" -eq 2 ] || fail "real widgets that are not there end play with $status"
says err "was not built for Windows"

# On a terminal findings and numbers have colours, unless somebody does not want them.
mkdir "$work/empty"
escape=$(printf '\033')
colored=$(env -u NO_COLOR TERM=xterm script -qec "$keyscout check $work/empty" /dev/null </dev/null) || true
case $colored in *"$escape[1;31merror:"*) ;; *) fail "not coloured: $colored" ;; esac
for setting in "NO_COLOR=1 TERM=xterm" "TERM=dumb"; do
  plain=$(env -u NO_COLOR $setting script -qec "$keyscout check $work/empty" /dev/null </dev/null) || true
  case $plain in
    *"$escape"*) fail "coloured with $setting: $plain" ;;
    *"error: "*) ;;
    *) fail "no finding: $plain" ;;
  esac
done
run check "$work/empty"
if grep -q "$escape" "$work/out"; then fail "a file is coloured"; fi

# A reader that has gone ends a long list of findings without a word.
mkdir "$work/catalog"
printf '%0250d\r\n' 0 >"$work/catalog/catindex.txt"
yes short | head -n 100000 >"$work/catalog/0000000000.txt"
("$keyscout" check "$work/catalog" 2>"$work/err" || echo $? >"$work/status") | head -n 1 >"$work/out"
[ -s "$work/out" ] || fail "nothing was written before the reader left"
[ ! -s "$work/err" ] || fail "said to nobody: $(cat "$work/err")"
[ "$(cat "$work/status")" -eq 141 ] || fail "a broken pipe ends check with $(cat "$work/status")"
echo "passed"
