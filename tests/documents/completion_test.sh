# Completes command lines of morvane_gen in the shell whose name is the argument.
source "$SOURCE/tests/documents/test_folder.sh"
source "$SOURCE/tests/documents/typed_lines.sh" "$1" morvane_gen

mkdir files/alpha_folder
touch files/alpha_file files/beta_file "files/gamma file"

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

# Every long option of the usage text, typed without its last letter.
morvane_gen --help >usage || [ $? -eq 1 ]
grep -o -e '--[a-z]*.*' usage | sed 's/ \[\(file\|dir\).*/=/; s/ \[.*/ /' | grep '^--' >options
[ "$(wc -l <options)" -eq 7 ] || fail "$(wc -l <options) long options in the usage text"
while IFS= read -r option; do
  completes "${option%??}" "$option"
done <options

type_lines
