#!/bin/bash
# Completes command lines of the program in each shell that there are completions for.
# Usage: completions_test.sh SOURCE
# Skipped (77) where one of the shells is missing.
set -eu

completions=$1/completions
for shell in zsh fish tmux; do
  command -v $shell >/dev/null || { echo "$shell is not installed"; exit 77; }
done
work=$(mktemp -d "${TMPDIR:-/tmp}/keyscout-completions.XXXXXX")
terminal() { tmux -f /dev/null -S "$work/socket" "$@"; }
trap 'terminal kill-server 2>/dev/null || true; rm -rf "$work"' EXIT
export HOME=$work LC_ALL=C.UTF-8
mkdir "$work/functions" "$work/here"
cp "$completions/keyscout.zsh" "$work/functions/_keyscout"
cd "$work/here"
mkdir catalog
touch parts.txt
fail() {
  echo "FAILED: $1"
  exit 1
}

# What each shell offers for a line, words with blanks between them.
in_bash() {
  # shellcheck disable=SC1091
  source "$completions/keyscout.bash"
  read -r -a COMP_WORDS <<<"$1"
  [[ $1 != *' ' ]] || COMP_WORDS+=("")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  _keyscout
  echo "${COMPREPLY[*]}"
}
in_fish() {
  fish --no-config -c "source $completions/keyscout.fish; complete -C '$1'" | cut -f 1 | xargs
}

complete_as() {
  for shell in bash fish; do
    offered=$(in_$shell "$1" | tr ' ' '\n' | sed 's|/$||' | sort | xargs)
    [ "$offered" = "$2" ] || fail "$shell offers for \"$1\": $offered"
  done
}
complete_as "keyscout lo" "lookup"
complete_as "keyscout p" "pack play"
complete_as "keyscout help t" "try"
complete_as "keyscout lookup --a" "--authorized"
complete_as "keyscout play --widgets m" "memory"
complete_as "keyscout check c" "catalog"
complete_as "keyscout pack p" "parts.txt"

# zsh completes only on a terminal.
terminal new-session -d -x 80 -y 24 -s t "zsh -f"
keys() { terminal send-keys -t t "$@"; }
shows() {
  for _ in $(seq 100); do
    if terminal capture-pane -p -t t | grep -qF -e "$1"; then return; fi
    sleep 0.1
  done
  fail "zsh does not show: $1: $(terminal capture-pane -p -t t)"
}
keys -l "fpath=($work/functions \$fpath); autoload -U compinit; compinit -D; PS1='ready '; clear"
keys Enter
shows "ready"
zsh_completes() {
  keys C-u
  keys -l "$1"
  keys Tab
  shows "ready $2"
}
zsh_completes "keyscout lo" "keyscout lookup"
zsh_completes "keyscout help t" "keyscout help try"
zsh_completes "keyscout lookup --a" "keyscout lookup --authorized"
zsh_completes "keyscout play --widgets m" "keyscout play --widgets memory"
zsh_completes "keyscout check c" "keyscout check catalog/"
zsh_completes "keyscout pack p" "keyscout pack parts.txt"
echo "passed"
