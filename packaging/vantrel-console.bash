# Completion of vantrel-console for bash. Options are read from the program's help.

_vantrel_console() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} before2='' word=''
  local -a options=()
  local index plain=0
  COMPREPLY=()
  ((COMP_CWORD < 2)) || before2=${COMP_WORDS[COMP_CWORD - 2]}
  mapfile -t options < <("${COMP_WORDS[0]}" --help 2>/dev/null |
    sed -n 's/^  \(-[a-z], \)\{0,1\}\(--[a-z-]*\) .*/\2/p')

  # The words that are neither options nor their values.
  for ((index = 1; index < COMP_CWORD; ++index)); do
    word=${COMP_WORDS[index]}
    case $word in
    --listen) ((++index)) ;;
    --tls) ((index += 2)) ;;
    -*) ;;
    *) ((++plain)) ;;
    esac
  done

  compopt -o filenames 2>/dev/null || true
  if [[ $before == --tls || $before2 == --tls ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$current" | sort)
  elif [[ $before == --listen ]]; then
    # An address of this machine, which is the user's own.
    return 0
  elif [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "${options[*]}" -- "$current")
  elif ((plain == 0)); then
    mapfile -t COMPREPLY < <(compgen -d -- "$current" | sort)
  fi
}

complete -F _vantrel_console vantrel-console
