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
completes 'check --format gitl' 'check --format gitlab '
completes 'check --format sarif:zet' 'check --format sarif:zeta\ net.bin '
completes 'lint --format sarif:zet' 'lint --format sarif:zeta\ net.bin '
completes 'lint --ignore no-trail' 'lint --ignore no-trailing-newline '
completes 'check --ignore=no-dv' 'check --ignore=no-dvis '
completes 'pack --ignore no-dvis,stale' 'pack --ignore no-dvis,stale-baseline-entry '
completes 'lint --baseline zet' 'lint --baseline zeta\ net.bin '
completes 'explain quoted' 'explain quoted-number '
completes 'explain no-dvis quoted' 'explain no-dvis quoted-number '
completes 'diff net.bin zet' 'diff net.bin zeta\ net.bin '
completes 'show --di' 'show --digest '
completes 'show net.bin be' 'show net.bin beta '
completes 'show --csv net.bin alpha be' 'show --csv net.bin alpha beta '
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

# The help says nothing about an option but its value, its other name and its description.
for command in check report; do
  ! morvane "$command" --help | grep -e 'Excludes' || fail "the help of $command has words for programmers"
done

type_lines
[ ! -e files/harm ] || fail "a DAG name was evaluated"
