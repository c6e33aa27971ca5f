# bash completion of morvane_gen

_morvane_gen() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
  # --dir=out arrives as three words.
  if [ "$word" = = ]; then
    word=
  elif [ "$option" = = ] && ((COMP_CWORD > 1)); then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi

  COMPREPLY=()
  if [[ $option =~ ^(--filename|-[vch]*f)$ ]]; then
    compopt -o default
  elif [[ $option =~ ^(--dir|--parsedir|-[vch]*[dp])$ ]]; then
    compopt -o dirnames
  else
    mapfile -t COMPREPLY < <(compgen -W "-f --filename= -d --dir= -p --parsedir= -v --verbose
      -c --vproc --version -h --help" -- "$word")
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
      compopt -o nospace
    fi
  fi
}

complete -F _morvane_gen morvane_gen
