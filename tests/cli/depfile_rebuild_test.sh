# Make and Ninja read the dependency file as it is: they pack again when an input changes or is removed, and only then.
#
#     depfile_rebuild_test.sh make|ninja
source "$SOURCE/tests/documents/test_folder.sh"

copy_sample "$SOURCE/examples/wake_word" 'out put'
mv 'out put/wake_word_split_1.dvi' 'out put/#$_split_1.dvi'
mv 'out put/_wake_word_split_1.h' 'out put/_#$_split_1.h'
cat >Makefile <<'END'
net.bin:
	morvane pack 'out put' -o net.bin --depfile net.d
-include net.d
END
cat >build.ninja <<'END'
rule pack
  command = morvane pack 'out put' -o net.bin --depfile net.d
  depfile = net.d
build net.bin: pack
END

# makes YES|NO AFTER-WHAT
makes() {
  "$program" >log 2>&1 || fail "$program fails after: $2: $(<log)"
  case $1 in
    YES) grep -q 'net\.bin: packed' log || fail "$program packs nothing after: $2" ;;
    NO) ! grep -q 'net\.bin: packed' log || fail "$program packs after: $2" ;;
  esac
}

program=$1
makes YES "nothing was there"
makes NO "nothing"
sleep 0.05
touch 'out put/#$_split_1.dvi'
makes YES "an image was touched"
makes NO "nothing"
rm 'out put/#$_split_1.dvi' 'out put/_#$_split_1.h'
mv 'out put/wake_word_split_2.dvi' 'out put/wake_word_split_1.dvi'
mv 'out put/_wake_word_split_2.h' 'out put/_wake_word_split_1.h'
makes YES "files were removed"
makes NO "nothing"
