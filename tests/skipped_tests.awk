# Prints the tests that ctest skipped, and why. Reads its LastTest.log.

# A script says it itself.
/^the test [^ ]+ is skipped: / { print }

# GoogleTest prints the place, then the reason, then the test.
/: Skipped$/ { getline reason }
/^\[  SKIPPED \] .* ms\)$/ { print "the test " $4 " is skipped: " reason }
