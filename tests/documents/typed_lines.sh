# Sourced by the tests of the completions, with the names of the shell, bash or zsh, and of the program. Lines
# and a TAB are typed in an interactive shell, and a key that writes down what is then on the line.

shell=$1 completed_program=$2

script -qec true /dev/null >/dev/null 2>&1 </dev/null || skip "no pseudo-terminal can be made here"

home=$scratch/home
export SOURCE scratch home completed_program
mkdir "$home" files

case $shell in
  bash)
    start='bash --noprofile --rcfile "$home/start" -i'
    cat >"$home/start" <<'END'
      PS1='ready '
      bind 'set bell-style none'
      note_line() { printf '%s\n' "$READLINE_LINE" >>"$scratch/found"; READLINE_LINE=; }
      bind -x '"\C-xn": note_line'
      source "$SOURCE/completions/$completed_program.bash"
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

# completes TYPED EXPECTED: what a TAB makes of a line that begins with the program's name.
completes() {
  printf '%s %s\t\030n' "$completed_program" "$1" >>typed
  printf '%s %s\n' "$completed_program" "$2" >>expected
}

# Types the lines in the folder "files" when the shell, which reads from a terminal, is ready; compares what
# they became.
type_lines() {
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
}
