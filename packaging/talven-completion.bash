# Bash completion for the programs of Talven. What can be given is asked of the programs' own help.

_talven_options() {
  "$@" --help 2>/dev/null | grep -oE -- '(^|[ ,])--?[A-Za-z0-9][-A-Za-z0-9]*' | tr -d ' ,'
}

_talven() {
  local word=${COMP_WORDS[COMP_CWORD]} program=${COMP_WORDS[0]} words=
  if [[ ${program##*/} == talven-run && $COMP_CWORD -eq 1 ]]; then
    words=$("$program" --help 2>/dev/null | sed -n 's/^  \(-*[a-z][-a-z]*\)  .*/\1/p')
  elif [[ $word == -* && ${program##*/} == talven-run ]]; then
    words=$(_talven_options "$program" "${COMP_WORDS[1]}")
  elif [[ $word == -* ]]; then
    words=$(_talven_options "$program")
  fi
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -o default -o bashdefault -F _talven talven talven-console talven-run talven-fcalc talven-view
