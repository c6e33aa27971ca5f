# bash completion of morvane_gen

# Completes the value in a word such as -dout or -vcfnet.bin: -f takes files, the others folders. Leaves alone
# what the shell would read otherwise than as a name: quotes, and ~, which it does not expand there.
_morvane_gen_attached_value() {
  local option=$1 value=${2//\\/} kind=-d path quoted
  [[ $value != [\'\"~]* ]] || return
  [[ $option != *f ]] || kind=-f
  while IFS= read -r path; do
    printf -v quoted %q "$path"
    if [ -d "$path" ]; then
      quoted+=/
      compopt -o nospace
    fi
    COMPREPLY+=("$option$quoted")
  done < <(compgen "$kind" -- "$value")
}

_morvane_gen() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
  # --dir=out arrives as three words.
  if [[ $word == = && $option == --* ]]; then
    word=
  elif [[ $option == = && ${COMP_WORDS[COMP_CWORD - 2]} == --* ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi

  COMPREPLY=()
  if [[ $option =~ ^(--filename|-[vch]*f)$ ]]; then
    compopt -o default
  elif [[ $option =~ ^(--dir|--parsedir|-[vch]*[dp])$ ]]; then
    compopt -o dirnames
  elif [[ $word =~ ^(-[vch]*[fdp])(.+)$ ]]; then
    _morvane_gen_attached_value "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
  else
    mapfile -t COMPREPLY < <(compgen -W "-f --filename= -d --dir= -p --parsedir= -v --verbose
      -c --vproc --version -h --help" -- "$word")
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
      compopt -o nospace
    fi
  fi
}

complete -F _morvane_gen morvane_gen
