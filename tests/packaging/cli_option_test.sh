# Whether morvane is built changes nothing in how morvane_gen and its library are built. Where headers are
# missing, morvane is left out with a reason, or refused when it was asked for.
source "$SOURCE/tests/documents/test_folder.sh"

# configure FOLDER OPTION ...
configure() {
  cmake -S "$SOURCE" -B "$1" -DBUILD_TESTING=OFF -DCMAKE_BUILD_TYPE=Release "${@:2}" >"$1.log" 2>&1
}

# commands FOLDER: how morvane_gen and its library are compiled and linked.
commands() {
  sed "s,$scratch/$1,BUILD,g" "$1/compile_commands.json" | grep '"command"' | grep -v cli | sort
  cat "$1"/CMakeFiles/morvane{,_gen,_gen_installed}.dir/link.txt | sed "s,$scratch/$1,BUILD,g"
}

configure off -DMORVANE_CLI=OFF || fail "$(<off.log)"
! grep -q cli off/compile_commands.json || fail "OFF builds morvane"
configure default || fail "$(<default.log)"
grep -q cli default/compile_commands.json || skip "the headers of morvane are missing here"
commands off >expected
[ "$(wc -l <expected)" -ge 8 ] || fail "too few commands"
commands default >found
same "the commands" expected found

missing=(-Dmorvane_nlohmann_folder=OFF -DCMAKE_IGNORE_PATH=/usr/include)
configure without "${missing[@]}" || fail "$(<without.log)"
grep -q 'morvane is left out: missing .*nlohmann/json.hpp (Debian: nlohmann-json3-dev)' without.log ||
  fail "$(<without.log)"
! grep -q cli without/compile_commands.json || fail "morvane is built without its headers"
! configure refused "${missing[@]}" -DMORVANE_CLI=ON || fail "missing headers are no error"
grep -q 'morvane cannot be built: missing ' refused.log || fail "$(<refused.log)"
