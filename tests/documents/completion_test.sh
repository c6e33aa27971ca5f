# Completes command lines in an interactive shell, bash or zsh, whose name is the argument: a line and a TAB
# are typed, and a key that writes down what then stands on the line.
source "$SOURCE/tests/documents/test_folder.sh"

script -qec true /dev/null >/dev/null 2>&1 </dev/null || skip "no pseudo-terminal can be made here"

shell=$1
home=$scratch/home
export SOURCE scratch home
mkdir "$home" files files/alpha_folder
touch files/alpha_file files/beta_file "files/gamma file"

case $shell in
  bash)
    start='bash --noprofile --rcfile "$home/start" -i'
    cat >"$home/start" <<'END'
      PS1='ready '
      bind 'set bell-style none'
      note_line() { printf '%s\n' "$READLINE_LINE" >>"$scratch/found"; READLINE_LINE=; }
      bind -x '"\C-xn": note_line'
      source "$SOURCE/completions/morvane_gen.bash"
END
    ;;
  zsh)
    start='zsh -d -i'
    cat >"$home/.zshrc" <<'END'
      PS1='ready '
      setopt no_beep
      unsetopt auto_list auto_menu zle_bracketed_paste
      note_line() { print -r -- "$BUFFER" >>"$scratch/found"; BUFFER=; }
      zle -N note_line
      bindkey -e
      bindkey '^Xn' note_line
      fpath=("$SOURCE/completions" $fpath)
      autoload -Uz compinit
      compinit -u -D
END
    ;;
esac

# completes TYPED EXPECTED: what a TAB makes of a line that begins with the tool's name.
completes() {
  printf 'morvane_gen %s\t\030n' "$1" >>typed
  printf 'morvane_gen %s\n' "$2" >>expected
}

completes '-f alp' '-f alpha_f'
completes '-f alpha_fi' '-f alpha_file '
completes '-f bet' '-f beta_file '
completes '-f gam' '-f gamma\ file '
completes '--filename bet' '--filename beta_file '
completes '--filename=bet' '--filename=beta_file '
completes '--filename=' '--filename='
completes '-d alp' '-d alpha_folder/'
completes '-d bet' '-d bet'
completes '-d ' '-d alpha_folder/'
completes '--dir alp' '--dir alpha_folder/'
completes '--dir=alp' '--dir=alpha_folder/'
completes '--dir=' '--dir=alpha_folder/'
completes '--dir=bet' '--dir=bet'
completes '-p alp' '-p alpha_folder/'
completes '--parsedir alp' '--parsedir alpha_folder/'
completes '--parsedir=alp' '--parsedir=alpha_folder/'
completes '-vcd alp' '-vcd alpha_folder/'
completes '-dalp' '-dalpha_folder/'
completes '-dbet' '-dbet'
completes '-palp' '-palpha_folder/'
completes '-vcdalp' '-vcdalpha_folder/'
completes '-fbet' '-fbeta_file '
completes '-falp' '-falpha_f'
completes '-fgam' '-fgamma\ file '
completes '-fgamma\ f' '-fgamma\ file '
completes '-v -f bet' '-v -f beta_file '
completes '-d=alp' '-d=alp'
completes '-d alpha_folder -f bet' '-d alpha_folder -f beta_file '
completes '-f beta_file --ver' '-f beta_file --ver'
completes 'bet' 'bet'

# Every long option of the usage text, typed but for its last letter.
morvane_gen --help >usage || [ $? -eq 1 ]
grep -o -e '--[a-z]*.*' usage | sed 's/ \[\(file\|dir\).*/=/; s/ \[.*/ /' | grep '^--' >options
[ "$(wc -l <options)" -eq 7 ] || fail "$(wc -l <options) long options in the usage text"
while IFS= read -r option; do
  completes "${option%??}" "$option"
done <options

# The shell reads from a terminal, and the lines are typed when it is ready.
printf 'exit\n' >>typed
: >terminal
(
  for ((i = 0; i < 300; ++i)); do
    ! grep -q ready terminal || break
    sleep 0.1
  done
  cat typed
) | (cd files && HOME=$home ZDOTDIR=$home TERM=dumb timeout 120 \
  script -qefc "$start" "$scratch/terminal" >/dev/null)
same "lines completed by $shell" expected found
