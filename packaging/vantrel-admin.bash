# Completion of vantrel-admin for bash. Commands, options and states are read from the program's help.

_vantrel_admin() {
  local program=${COMP_WORDS[0]} current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local command='' words='' index next option
  local -a plain=() commands=() options=()
  COMPREPLY=()

  mapfile -t commands < <("$program" --help 2>/dev/null |
    sed -n "s/^  vantrel-admin \([a-z][a-z ]*[a-z]\).*/\1/p")
  for ((index = 1; index < COMP_CWORD; ++index)); do
    [[ ${COMP_WORDS[index]} == -* ]] || plain+=("${COMP_WORDS[index]}")
  done
  for command in "${commands[@]}"; do
    [[ "${plain[*]} " != "$command "* ]] || break
    command=
  done

  if [[ -z $command ]]; then
    # The next word of every command that goes on from here.
    for command in "${commands[@]}"; do
      [[ ${#plain[@]} == 0 || $command == "${plain[*]} "* ]] || continue
      next=${command#"${plain[*]}"}
      next=${next# }
      words+=" ${next%% *}"
    done
    [[ $current != -* ]] || words='--help --version'
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current" | sort -u)
    return
  fi

  # The words are those of a command.
  # shellcheck disable=SC2086
  mapfile -t options < <("$program" $command --help 2>/dev/null |
    sed -n 's/^  \(--[a-z-]* [A-Z]*\).*/\1/p')
  for option in "${options[@]}"; do
    [[ $option == "$before "[A-Z]* ]] || continue
    # A value: only states can be listed.
    [[ $before == --state ]] || return 0
    # shellcheck disable=SC2086
    words=$("$program" $command --help | sed -n 's/^  --state.*: //p' | tr -d ',' | sed 's/ or / /')
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    return
  done
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "${options[*]%% *} --help" -- "$current")
    return
  fi
  # The program folder comes first; a file follows only where cards are exported.
  local -a name
  read -ra name <<<"$command"
  compopt -o filenames 2>/dev/null || true
  if ((${#plain[@]} == ${#name[@]})); then
    [[ $command == settings || $command == 'store init' ]] ||
      mapfile -t COMPREPLY < <(compgen -d -- "$current" | sort)
  elif [[ $command == 'store copy' ]] && ((${#plain[@]} == ${#name[@]} + 1)); then
    mapfile -t COMPREPLY < <(compgen -d -- "$current" | sort)
  elif [[ $command == 'ledger export' ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$current" | sort)
  fi
}

complete -F _vantrel_admin vantrel-admin
