# Completes command lines of morvane in the shell whose name is the argument.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/typed_lines.sh" "$1" morvane

mkdir files/alpha_folder
# make_package NAME ...: DVIs without ports and images.
make_package() {
  local name
  head -c 8 /dev/zero
  printf "\\x0$#\\0\\0\\0"
  for name in "$@"; do
    head -c 28 /dev/zero
    printf %s "$name"
    head -c $((128 - ${#name})) /dev/zero
  done
}
# Names that need quotes, or would do harm if a shell evaluated them.
make_package alpha beta 'gamma ray' 'delta$(touch harm)' >files/net.bin
cp files/net.bin 'files/zeta net.bin'

completes 'che' 'check '
completes 'sho' 'show '
completes 'di' 'diff '
completes 'ext' 'extract '
completes '--ver' '--version '
completes 'extract net' 'extract net.bin '
completes 'extract zet' 'extract zeta\ net.bin '
completes 'extract net.bin al' 'extract net.bin alpha '
completes 'extract net.bin be' 'extract net.bin beta '
completes 'extract net.bin ga' 'extract net.bin gamma\ ray '
completes 'extract net.bin gamma\ r' 'extract net.bin gamma\ ray '
completes 'extract net.bin delt' 'extract net.bin delta\$\(touch\ harm\) '
completes 'extract zeta\ net.bin be' 'extract zeta\ net.bin beta '
completes 'extract net.bin alpha be' 'extract net.bin alpha beta '
completes 'extract --force net.bin be' 'extract --force net.bin beta '
completes 'extract -o alpha_folder net.bin be' 'extract -o alpha_folder net.bin beta '
completes 'extract --output=alpha_folder net.bin be' 'extract --output=alpha_folder net.bin beta '
completes 'extract -o al' 'extract -o alpha_folder/'
completes 'extract --output al' 'extract --output alpha_folder/'
completes 'extract --output=al' 'extract --output=alpha_folder/'
completes 'extract net.bin --fo' 'extract net.bin --force '
completes 'extract net.bin net' 'extract net.bin net'
completes 'check net' 'check net.bin '
completes 'check net.bin zet' 'check net.bin zeta\ net.bin '
completes 'check --format s' 'check --format sarif '
completes 'check --format=j' 'check --format=json '
completes 'diff net.bin zet' 'diff net.bin zeta\ net.bin '
completes 'show --di' 'show --digest '
completes 'lint al' 'lint alpha_folder/'
completes 'lint --format s' 'lint --format sarif '
completes 'pack al' 'pack alpha_folder/'

# Every long option that takes no value, of every command.
morvane --help | sed -n 's/^  \([a-z]*\) .*/\1/p' >commands
[ "$(wc -l <commands)" -ge 4 ] || fail "too few commands in the help text"
while IFS= read -r command; do
  morvane "$command" --help | sed -n 's/^  \(-.,\)\{0,1\}\(--[a-z-]*\)  .*/\2/p' >options
  [ "$(wc -l <options)" -ge 2 ] || fail "too few options of $command in the help text"
  while IFS= read -r option; do
    completes "$command ${option%?}" "$command $option "
  done <options
done <commands

type_lines
[ ! -e files/harm ] || fail "a DAG name was evaluated"
