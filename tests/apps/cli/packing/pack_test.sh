#!/bin/bash
# Packs that meet, are killed or stopped, and what they read from and write to.
# Usage: pack_test.sh KEYSCOUT
set -eu

keyscout=$(realpath "$1")
work=$(mktemp -d "${TMPDIR:-/tmp}/keyscout-pack-test.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"
fail() {
  echo "FAILED: $1"
  exit 1
}
# Runs `keyscout pack`; its exit status and what it wrote are then in $status, out and err.
pack() {
  status=0
  "$keyscout" pack "$@" >out 2>err </dev/null || status=$?
}
expect() { [ "$status" -eq "$1" ] || fail "exit status $status instead of $1: $2: $(cat err)"; }
# A download of $2 numbers that begin with $1.
download() {
  printf 'FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n'
  seq "$2" | awk -v start="$1" '{ printf "%-10d%s%-59d%s\r\n", $1, start, $1, "ACME" }'
}
# The catalog in $1 must be one of the two, whole.
is_one_of_both() {
  diff -r -x 'keyscout-pack.*' "$1" reference-a >/dev/null ||
    diff -r -x 'keyscout-pack.*' "$1" reference-b >/dev/null
}
# Some milliseconds, other ones each time.
random_while() { sleep "0.$(printf %03d $((RANDOM % $1)))"; }

download A 100 >a.txt
download B 400 >b.txt
# Many small tables make the exchange of files long.
"$keyscout" pack a.txt reference-a --lines 2 --download list.txt --quiet
"$keyscout" pack b.txt reference-b --lines 2 --download list.txt --quiet

echo "== two at once"
together=0
for _ in 1 2 3 4; do
  "$keyscout" pack a.txt pairs --lines 2 --download list.txt --quiet 2>/dev/null & first=$!
  "$keyscout" pack b.txt pairs --lines 2 --download list.txt --quiet 2>/dev/null & second=$!
  a=0; wait $first || a=$?
  b=0; wait $second || b=$?
  case "$a$b" in 00 | 03 | 30) ;; *) fail "two packs exit with $a and $b" ;; esac
  [ "$a$b" = 00 ] || together=$((together + 1))
  is_one_of_both pairs || fail "two packs at once left neither catalog"
done
echo "   refused $together of 4"

echo "== killed, with readers beside"
# What a reader finds ready before and after is whole in between.
read_on() {
  while [ ! -e stop ]; do
    before=$(stat -c %i:%z killed/catcontrol.txt)
    [ "$(tr -d '\r' <killed/catcontrol.txt)" = READY ] || continue
    "$keyscout" check killed >findings 2>&1 && continue
    [ "$(stat -c %i:%z killed/catcontrol.txt)" = "$before" ] || continue
    [ "$(tr -d '\r' <killed/catcontrol.txt)" = READY ] || continue
    mv findings unsound
    return
  done
}
cp -r reference-a killed
rm -f stop unsound
read_on & reader=$!
for signal in KILL KILL KILL INT TERM; do
  for list in a b; do
    "$keyscout" pack $list.txt killed --lines 2 --download list.txt --quiet 2>/dev/null & victim=$!
    random_while 150
    kill -$signal $victim 2>/dev/null || true
    wait $victim 2>/dev/null || true
    case "$(tr -d '\r' <killed/catcontrol.txt)" in
      READY) is_one_of_both killed || fail "ready after SIG$signal and neither catalog" ;;
      INPROCESS)
        [ $signal = KILL ] || fail "in process after SIG$signal"
        "$keyscout" check killed >out || true
        grep -q 'ended half-way; pack again' out || fail "nothing says pack again: $(head -3 out)" ;;
      *) fail "the control file says $(cat killed/catcontrol.txt)" ;;
    esac
  done
done
: >stop
wait $reader
[ ! -e unsound ] || fail "ready and not whole: $(head -3 unsound)"
pack b.txt killed --lines 2 --download list.txt
expect 0 "the pack after them"
diff -r killed reference-b || fail "the pack after them left something"

echo "== stopped at any time: the exit status tells which catalog is there"
there=b in_time=0
for _ in 1 2 3 4 5 6; do
  [ $there = a ] && list=b || list=a
  "$keyscout" pack $list.txt killed --lines 2 --download list.txt --quiet 2>err & victim=$!
  random_while 60
  kill -TERM $victim 2>/dev/null || true
  status=0; wait $victim || status=$?
  case $status in
    0) there=$list ;;
    143) in_time=$((in_time + 1)) ;;
    *) fail "exit status $status after SIGTERM: $(cat err)" ;;
  esac
  diff -r killed reference-$there >/dev/null || fail "exit status $status, and another catalog is there"
done
echo "   stopped in time: $in_time of 6"

echo "== pipes and outputs"
"$keyscout" pack - piped --quiet <a.txt || fail "cannot pack its standard input"
cmp piped/download.txt a.txt
"$keyscout" pack - piped --download list.txt --lines 2 --quiet < <(cat a.txt)
diff -r piped reference-a
if [ -e /dev/full ]; then
  for command in "pack a.txt full" "check full" "lookup full A" "--help"; do
    "$keyscout" $command >/dev/full 2>err && fail "$command exits with 0 where the disk is full"
    [ "$("$keyscout" $command 2>&1 >/dev/full | wc -l)" -eq 1 ] || fail "$command says: $(cat err)"
  done
fi
"$keyscout" pack a.txt closed >&- 2>err && fail "exits with 0 where its output is closed"
"$keyscout" check closed >out || fail "a closed output spoils the catalog: $(cat out)"
"$keyscout" pack b.txt closed --lines 2 --download list.txt --quiet 2>&- </dev/null
diff -r closed reference-b

echo "== a limit of file sizes"
cp -r reference-a limited
status=0
{ (ulimit -f 8 && exec "$keyscout" pack b.txt limited) >out 2>err || status=$?; } 2>/dev/null
expect $((128 + $(kill -l XFSZ))) "a file that is too large"
grep -q '^keyscout pack: .*File too large' err || fail "says $(cat err)"
diff -r limited reference-a

echo "== sentences"
# Whatever fails says who says so, and nothing a person does not know.
sentence() {
  pack "${@:3}"
  expect "$1" "$2"
  grep -qF "keyscout pack: $2" err || fail "does not say \"$2\": $(cat err)"
  ! grep -qvE '^(keyscout pack: |Run keyscout pack --help)' err || fail "begins otherwise: $(cat err)"
  [ ! -s out ] || fail "complains on the standard output: $(cat out)"
}
printf 'X\r\n' | cat a.txt - >short.txt
printf 'Part No;Maker\nab-1;ACME\nab-2;BOLT\nAB-1;ACME\n' >parts.csv
mkdir other && : >other/file
sentence 1 'short.txt:102: The record has 1 column; fill' short.txt new
sentence 2 'nowhere.txt: The download cannot be opened: No such file or directory' nowhere.txt new
sentence 2 'other holds other files and no catalog' a.txt other
sentence 2 'a.txt is not a directory.' a.txt a.txt
sentence 2 'DIR is required' a.txt
sentence 2 'DOWNLOAD is required'
sentence 2 '--number is required' --csv parts.csv new
sentence 2 '--lines: "99999999999999999999" is no whole number' a.txt new --lines 99999999999999999999
sentence 2 '--code-page: the code page of a download is 1252' a.txt new --code-page 850
sentence 1 'parts.csv:4: The catalog number "AB-1" differs from "ab-1" on line 2' --csv parts.csv new \
  --number 1 --brand maker
[ ! -e new ] || fail "a refused pack leaves a directory"
if [ "$(id -u)" -ne 0 ]; then
  mkdir locked && chmod 500 locked
  sentence 2 'The catalog could not be packed: locked/keyscout-pack.lock: Permission denied' a.txt locked
fi

echo "== a CSV list"
pack --csv parts.csv parts --number 'Part No' --brand maker --upper-case --duplicates first --json
expect 0 "a CSV list"
grep -qx '{"records":2,"dropped":1,"tables":1,.*"directory":"parts",.*"dryRun":false}' out ||
  fail "JSON: $(cat out)"
"$keyscout" check parts || fail "check and pack disagree about a list"
"$keyscout" pack --csv - streamed --number 1 --brand 2 --index-file i.txt --dry-run <parts.csv >out 2>err &&
  fail "a dry run takes what a pack refuses"
[ ! -e streamed ] || fail "a dry run makes a directory"
echo "passed"
