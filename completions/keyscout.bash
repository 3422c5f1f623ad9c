# Completion of the keyscout program for bash.

_keyscout() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local common="--help --version" options
  COMPREPLY=()

  if ((COMP_CWORD == 1)); then
    COMPREPLY=($(compgen -W "check help lookup pack play try $common" -- "$current"))
    return
  fi
  case $previous in
    --widgets)
      COMPREPLY=($(compgen -W "memory win32" -- "$current"))
      return
      ;;
    --delimiter)
      COMPREPLY=($(compgen -W "comma semicolon tab" -- "$current"))
      return
      ;;
    --duplicates)
      COMPREPLY=($(compgen -W "refuse first" -- "$current"))
      return
      ;;
    --csv)
      compopt -o filenames 2>/dev/null
      COMPREPLY=($(compgen -f -- "$current"))
      return
      ;;
    # What these take is known to the user alone.
    --number | --code-page | --index-file) return ;;
    --brand | --authorized | --count | --lines | --index | --download) return ;;
  esac
  case ${COMP_WORDS[1]} in
    check) options="--json --index --download" ;;
    lookup) options="--brand --authorized --count --json --index --download" ;;
    pack)
      options="--csv --number --brand --index --delimiter --no-header --upper-case --duplicates
        --code-page --lines --index-file --download --force --dry-run --json --quiet"
      ;;
    play) options="--view --line-numbers --widgets" ;;
    try) options="--index --download" ;;
    *) options="" ;;
  esac
  if [[ $current == -* ]]; then
    COMPREPLY=($(compgen -W "$options $common" -- "$current"))
    return
  fi

  compopt -o filenames 2>/dev/null
  case ${COMP_WORDS[1]} in
    help) COMPREPLY=($(compgen -W "check lookup pack play try" -- "$current")) ;;
    pack | play) COMPREPLY=($(compgen -f -- "$current")) ;;
    *) COMPREPLY=($(compgen -d -- "$current")) ;;
  esac
}

complete -F _keyscout keyscout
