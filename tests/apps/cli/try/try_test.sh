#!/bin/sh
# Drives `keyscout try` on a real terminal: keys in, screen out.
# Usage: try_test.sh KEYSCOUT
# Skipped (77) where there is no tmux to be the terminal.
set -eu

keyscout=$1
command -v tmux >/dev/null || { echo "tmux is not installed; nothing was tested"; exit 77; }
work=$(mktemp -d "${TMPDIR:-/tmp}/keyscout-try-test.XXXXXX")
mkdir "$work/tmp"
export LC_ALL=C.UTF-8 HOME="$work" TMPDIR="$work/tmp"
starts=0
# A server of its own for each start: one that is ending cannot take a new session.
terminal() { tmux -f /dev/null -S "$work/socket$starts" "$@"; }
trap 'terminal kill-server 2>/dev/null || true; rm -rf "$work"' EXIT

fail() {
  echo "FAILED: $1"
  terminal capture-pane -p -t t || true
  exit 1
}
screen() { terminal capture-pane -p -t t; }
keys() { terminal send-keys -t t "$@"; }
# Waits until the screen shows a text, or no longer shows it.
shows() {
  for _ in $(seq 100); do
    if screen | grep -qF -e "$1"; then return; fi
    sleep 0.1
  done
  fail "the screen does not show: $1"
}
shows_not() {
  for _ in $(seq 100); do
    if ! screen | grep -qF -e "$1"; then return; fi
    sleep 0.1
  done
  fail "the screen still shows: $1"
}
# Tells whether the terminal's settings are as they were, and how the program ended.
open_terminal() {
  terminal kill-server 2>/dev/null || true
  starts=$((starts + 1))
  terminal new-session -d -x "$1" -y "$2" -s t "stty -g >$work/before
    $3
    sh -c 'echo \$\$ >$work/pid; exec $keyscout try $4'; status=\$?; stty -g >$work/after
    cmp -s $work/before $work/after && echo whole || echo broken; echo \"status \$status\"; sleep 60"
}
start() {
  open_terminal "$1" "$2" "" "${3:-$work/catalog}"
  shows "Order line"
}
# Pastes a file as a terminal does that marks what is pasted.
paste() {
  terminal load-buffer "$1"
  terminal paste-buffer -p -t t
}

{
  printf 'FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n'
  for number in $(seq 100 139); do
    brand=ACME
    [ $((number % 2)) -eq 0 ] || brand=BOLT
    printf '%-10s%-60s%s\r\n' "$number" "AB-$number" "$brand"
  done
} >"$work/parts.txt"
"$keyscout" pack --lines 10 "$work/parts.txt" "$work/catalog" >/dev/null
cp -r "$work/catalog" "$work/untouched"

# The main road, on the smallest screen: type, walk, extend, accept.
start 60 20
keys -l "ab-10"
shows "│AB-100 "
shows "│AB-108 "
shows " more ↓ "
keys Down Down Down Down Down Down Down Down Down Down
shows "│AB-109 "
keys Enter
shows "│ Part        AB-109 "
shows "of BOLT"
shows "brandChanged   BOLT"
shows_not "│AB-108 "
keys -l "x"
shows_not "of BOLT"
keys BSpace

# The end of the catalog, Alt+Up and Escape.
keys Home; keys -l "zz"; keys BSpace BSpace
keys End BSpace BSpace BSpace
keys -l "136"
shows " end of catalog "
keys Down M-Up
shows_not " end of catalog "
keys BSpace
shows "│AB-130 "
keys Down Escape
shows_not "│AB-130 "
shows "│ Part        AB-13 "

# An opening parenthesis is a character, though its number is the code of Down.
keys -l "("
shows "│ Part        AB-13( "

# A brand filters; wide and combining characters keep the frames in line.
keys BSpace Tab Tab; keys -l "日本é"
shows "│ Brand       日本é             ││"
keys Left BSpace End BSpace BSpace
shows "│ Brand                         ││"
# A character is a character, whatever it is made of, and a line end is none.
keys -l "ae$(printf '\314\201')"; keys BSpace; keys -l "🔩b"; keys Left Left DC End Left Right Enter
shows "│ Brand       ab                ││"
keys BSpace BSpace; keys -l "BOLT"; keys BTab
keys -l "a"
shows "│AB-101 "
shows_not "│AB-102 "
keys Escape
shows_not "│AB-101 "
keys Tab BSpace BSpace BSpace BSpace Tab Space
shows "[x] ACME"
keys BTab BTab BSpace; keys -l "a"
shows "│AB-102 "
shows_not "│AB-101 "

# A resize with the list open, a screen that is too small, and back.
terminal resize-window -t t -x 110 -y 32
shows "│ Table                 "
terminal resize-window -t t -x 30 -y 12
shows "60 columns and 20 rows."
terminal resize-window -t t -x 60 -y 20
shows "│AB-102 "

# A damaged table: the question, No, the lock, Unlock, then Yes.
keys F2 BSpace; keys -l "a"
shows "Would you like to update Keyscout now?"
keys F2 F5 F10 n
shows "KeyscoutLocked      yes"
keys -l "b"
shows_not "│AB-1"
keys F4
shows "KeyscoutLocked       no"
keys BSpace
shows "Would you like to update Keyscout now?"
keys Enter
shows "packed anew from"
shows "KeyscoutLocked       no"
keys BSpace; keys -l "ab-12"
shows "│AB-120 "
diff -r "$work/catalog" "$work/untouched" || fail "the data directory was written to"

# The mouse: a click on an entry accepts it. A report is a button, column 16 and row 8, each in a
# character 32 above its number.
keys -l "$(printf '\033[M 0(')"; keys -l "$(printf '\033[M#0(')"
shows "│ Replaces    AB-122 "

# A paste is one change without a key or an Enter; ten thousand changes would take seconds.
head -c 10000 /dev/zero | tr '\0' Q >"$work/long"
printf 'ab-11\r\n' >"$work/line"
keys Home
paste "$work/long"
shows "│ Replaces    QQQQQQQQQQQQQQQQ"
if screen | grep -qF -e "KeyDown        81"; then fail "a paste comes as keys"; fi
keys Tab BTab BTab
keys End BSpace BSpace BSpace BSpace BSpace
paste "$work/line"
shows "│AB-110 "
shows "│ Part        ab-11 "
keys Escape

# The terminal is whole again after Quit and after signals.
keys F10
shows "status 0"
shows "whole"
for signal in INT TERM HUP QUIT; do
  start 80 24
  kill -"$signal" "$(cat "$work/pid")" || fail "there is no process to end"
  shows "status"
  shows "whole"
done
[ -z "$(ls "$TMPDIR")" ] || fail "a folder of an update is left"

# What is published into the directory is served, and no number of the old catalog is listed.
sed 's/AB-/CD-/' "$work/parts.txt" >"$work/newer.txt"
start 84 24
keys -l "ab-10"
shows "│AB-108 "
"$keyscout" pack --lines 10 "$work/newer.txt" "$work/catalog" >/dev/null
shows "resetLastTableNumber"
shows_not "│AB-108 "
keys BSpace BSpace BSpace BSpace BSpace; keys -l "cd-12"
shows "│CD-120 "
# F5 packs what is served by then.
keys F5
shows "packed anew from"
keys BSpace; keys -l "2"
shows "│CD-120 "
keys F10
shows "status 0"

# A list is as wide as its widest entry where the screen is; what is cut is marked.
{
  printf 'FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n'
  for number in 10 11; do
    printf '%-10s%-60s%s\r\n' "$number" "AB-1234567890-1234567890-1234567890-1234567890-12345678901$number" "ACME"
  done
} >"$work/wide.txt"
"$keyscout" pack "$work/wide.txt" "$work/wide" >/dev/null
start 84 24 "$work/wide"
keys -l "ab"
shows "│AB-1234567890-1234567890-1234567890-1234567890-1234567890110│"
terminal resize-window -t t -x 60 -y 20
shows "│AB-1234567890-1234567890-1234567890-1234567890-1234567890…│"
keys F10

# An installed program finds the sample that came with it, also through a link.
mkdir -p "$work/tree/bin" "$work/tree/share/keyscout" "$work/elsewhere"
cp "$keyscout" "$work/tree/bin/keyscout"
cp -r "$work/untouched" "$work/tree/share/keyscout/catalog"
ln -s "$work/tree/bin/keyscout" "$work/elsewhere/keyscout"
built=$keyscout keyscout=$work/elsewhere/keyscout
start 84 24 " "
shows "Keyscout  $work/tree/share/keyscout/catalog"
keys F10
keyscout=$built

# Terminals on which nothing can be placed.
open_terminal 80 24 "export TERM=dumb" "$work/catalog"
shows "A terminal of this kind (dumb) only writes line below line"
shows "status 2"
# What the terminal library takes for a kind that it does not know it never gives back.
open_terminal 80 24 "export TERM=nosuch ASAN_OPTIONS=detect_leaks=0" "$work/catalog"
shows "of an unknown kind (nosuch)"
shows "status 2"

# Not on a terminal.
status=0
sentence=$("$keyscout" try "$work/catalog" </dev/null 2>&1) || status=$?
[ "$status" -eq 2 ] || fail "exit status $status without a terminal"
case $sentence in *"needs a terminal"*) ;; *) fail "not said: $sentence" ;; esac
echo "passed"
