# Completion of vantrel-print for bash. Options are read from the program's help, macros from the program folder.

_vantrel_print() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local help='' word='' folder='' macro='' index name
  local -a plain=() options=() valued=()
  COMPREPLY=()
  help=$("${COMP_WORDS[0]}" --help 2>/dev/null)
  mapfile -t options < <(sed -n 's/^  \(-[a-z], \)\{0,1\}\(--[a-z-]*\) .*/\2/p' <<<"$help")
  mapfile -t valued < <(sed -n 's/^  \(--[a-z-]*\) <.*/\1/p' <<<"$help")

  # The words that are neither options nor their values.
  for ((index = 1; index < COMP_CWORD; ++index)); do
    word=${COMP_WORDS[index]}
    [[ $word != --macro ]] || macro=yes
    if [[ " ${valued[*]} " == *" $word "* ]]; then
      ((++index))
    elif [[ $word != -?* ]]; then
      plain+=("$word")
    fi
  done
  # The folder's name as the program gets it.
  folder=${plain[0]-}
  folder=${folder//[\"\'\\]/}
  folder=${folder/#\~\//$HOME/}

  compopt -o filenames 2>/dev/null || true
  case $before in
  --format) mapfile -t COMPREPLY < <(compgen -W 'csv records tsv' -- "$current") ;;
  --encoding) mapfile -t COMPREPLY < <(compgen -W 'cp1252 utf-8' -- "$current") ;;
  --each | --images) mapfile -t COMPREPLY < <(compgen -d -- "$current" | sort) ;;
  --one) mapfile -t COMPREPLY < <(compgen -f -- "$current" | sort) ;;
  --macro)
    # The program folder may follow behind; then no macro is known yet.
    [[ -n $folder ]] || return 0
    while IFS= read -r name; do
      [[ $name != "${current//[\"\'\\]/}"* ]] || COMPREPLY+=("$name")
    done < <(vantrel-admin macro list "$folder" 2>/dev/null)
    ;;
  *)
    # Other values are the user's own.
    [[ " ${valued[*]} " != *" $before "* ]] || return 0
    if [[ $current == -* ]]; then
      mapfile -t COMPREPLY < <(compgen -W "${options[*]}" -- "$current")
    elif ((${#plain[@]} == 0)); then
      mapfile -t COMPREPLY < <(compgen -d -- "$current" | sort)
    elif ((${#plain[@]} == 2)) || [[ -n $macro && ${#plain[@]} == 1 ]]; then
      mapfile -t COMPREPLY < <(compgen -f -- "$current" | sort)
    fi
    ;;
  esac
}

complete -F _vantrel_print vantrel-print
