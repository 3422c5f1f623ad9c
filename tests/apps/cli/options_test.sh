#!/bin/sh
# Every option of pack, check and lookup once, with what it prints and how it exits.
# Usage: options_test.sh KEYSCOUT
set -eu

keyscout=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/keyscout-options.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"
# expect STATUS OUTPUT COMMAND...: runs the program; OUTPUT is all that it prints, a line
# for each "|", or "-" where that does not matter.
expect() {
  wanted=$1 output=$2
  shift 2
  status=0
  "$keyscout" "$@" >out 2>err </dev/null || status=$?
  [ "$status" -eq "$wanted" ] || { echo "FAILED: $* exits with $status"; cat out err; exit 1; }
  [ "$output" = - ] || [ "$(tr '\n' '|' <out)" = "$output" ] || { echo "FAILED: $* prints"; cat out err; exit 1; }
}
complains() { grep -qF -e "$1" err || { echo "FAILED: not on the standard error: $1"; cat err; exit 1; }; }

printf 'FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n' >parts.txt
for number in 10 11 12 13 14 15 16 17 18 19 20 21; do
  brand=ACME
  [ $((number % 2)) -eq 0 ] || brand=BOLT
  printf '%-10s%-60s%s\r\n' "$number" "AB-$number" "$brand" >>parts.txt
done

"$keyscout" pack parts.txt data --lines 5 --index own.txt >out
[ -f data/own.txt ] && [ ! -e data/catindex.txt ] || { echo "FAILED: pack --index"; ls data; exit 1; }
[ "$(wc -l <data/2.txt)" -eq 2 ] || { echo "FAILED: --lines 5"; exit 1; }
grep -q 'own.txt' out || { echo "FAILED: pack does not name the index"; cat out; exit 1; }
expect 2 '' pack parts.txt data --lines -3
complains 'is no whole number'
expect 2 '' pack missing.txt other
complains 'cannot be opened'
printf 'no header' >wrong.txt
expect 1 '' pack wrong.txt other
complains 'wrong.txt:1: '

expect 2 '' check nowhere
complains 'keyscout check: '
expect 0 '0 errors, 0 warnings in 12 lines of 3 tables|' check data --index own.txt --download parts.txt
expect 0 '{"findings":[],|"summary":{"errors":0,"warnings":0,"lines":12,"tables":3}}|' \
  check data --index own.txt --json
expect 1 - check data
grep -q '^catindex.txt:1: error: ' out || { echo "FAILED: check looks for the usual index"; cat out; exit 1; }

expect 0 'AB-18  ACME|AB-19  BOLT|AB-20  ACME|AB-21  BOLT|' lookup data ab-18 --index own.txt
expect 0 'AB-11  BOLT|AB-13  BOLT|' lookup data ab --index own.txt --brand BOLT --count 2
expect 0 'AB-20  ACME|' lookup data ab-2 --index own.txt --authorized ACME --authorized NONE --download parts.txt
expect 1 '' lookup data ZZ --index own.txt
complains 'nothing in the catalog follows ZZ'
expect 1 '{"text":"ZZ","entries":[],"endOfCatalog":true,"notes":["nothing in the catalog follows ZZ"]}|' \
  lookup data ZZ --index own.txt --json
expect 0 '{"text":"AB-21","entries":[{"number":"AB-21","brand":"BOLT","index":21}],"endOfCatalog":true,"notes":[]}|' \
  lookup data AB-21 --index own.txt --json
for count in 0 1000 x; do expect 2 '' lookup data A --index own.txt --count "$count"; done
expect 2 '' lookup data A
complains 'keyscout lookup: '
expect 2 '' lookup data A --index own.txt --download missing.txt
complains 'The catalog number download file does not exist.'
echo "passed"
