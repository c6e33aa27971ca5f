# bash completion of morvane. The commands, their options, the codes and the DAG names come from the program itself.

# Reads what `morvane [COMMAND] --help` says into the variables of the caller: options and commands, and
# what each option takes, if anything: values[--output]=FOLDER.
_morvane_read_help() {
  local line name
  while IFS= read -r line; do
    if [[ $line =~ ^'  '(-[^ ]+)(' '([A-Z]+)' ')? ]]; then
      for name in ${BASH_REMATCH[1]//,/ }; do
        options+=("$name")
        values[$name]=${BASH_REMATCH[3]}
      done
    elif [[ $line =~ ^'  '([a-z]+)' ' ]]; then
      commands+=("${BASH_REMATCH[1]}")
    fi
  done < <("$@" --help 2>/dev/null)
}

# Offers the DAG names of a package. A name is never evaluated, whatever it holds.
_morvane_offer_dag_names() {
  local program=$1 word=$3 name quoted
  # As typed, the path may be quoted.
  local package=${2//[\\\'\"]/}
  while IFS= read -r name; do
    printf -v quoted %q "$name"
    if [[ $quoted == "$word"* ]]; then
      COMPREPLY+=("$quoted")
    fi
  done < <("$program" extract --list "${package/#~\//$HOME/}" 2>/dev/null)
}

# Offers the codes of findings, also behind others and a comma.
_morvane_offer_codes() {
  local codes before=
  [[ $2 != *,* ]] || before=${2%,*},
  codes=$("$1" explain 2>/dev/null | sed -n 's/^  \([a-z0-9-]\{1,\}\)  .*/\1/p')
  mapfile -t COMPREPLY < <(compgen -P "$before" -W "$codes" -- "${2##*,}")
}

_morvane_offer_values() {
  case $1 in
    FOLDER) compopt -o dirnames ;;
    FORMAT) mapfile -t COMPREPLY < <(compgen -W "text json sarif gitlab github" -- "$2") ;;
    CODE) _morvane_offer_codes "$3" "$2" ;;
    *) compopt -o default ;;
  esac
}

_morvane() {
  local program=${COMP_WORDS[0]/#~\//$HOME/} command=${COMP_WORDS[1]} word=${COMP_WORDS[COMP_CWORD]}
  local before=${COMP_WORDS[COMP_CWORD - 1]} i
  local -a options=() commands=() arguments=()
  local -A values=()

  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    _morvane_read_help "$program"
    mapfile -t COMPREPLY < <(compgen -W "${commands[*]} ${options[*]}" -- "$word")
    return
  fi
  _morvane_read_help "$program" "$command"

  # --output=out arrives as three words, and so does sarif:out.
  if [[ $word == [=:] ]]; then
    word=
  elif [[ $before == = ]]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  for ((i = 2; i < COMP_CWORD; ++i)); do
    if [[ -n ${values[${COMP_WORDS[i]}]-} ]]; then
      [[ ${COMP_WORDS[i + 1]} != = ]] || ((++i))
      ((++i))
    elif [[ ${COMP_WORDS[i]} != -* ]]; then
      arguments+=("${COMP_WORDS[i]}")
    fi
  done

  if [[ -n ${values[$before]-} ]]; then
    _morvane_offer_values "${values[$before]}" "$word" "$program"
  elif [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "${options[*]}" -- "$word")
  elif [[ $command == @(extract|show) && ${#arguments[@]} -gt 0 ]]; then
    _morvane_offer_dag_names "$program" "${arguments[0]}" "$word"
  elif [[ $command == explain ]]; then
    _morvane_offer_codes "$program" "$word"
  elif [[ ($command == lint || $command == pack) && $before != : && $word != : ]]; then
    compopt -o dirnames
  else
    compopt -o default
  fi
}

complete -F _morvane morvane
