# The packages have the versions of both programs, which come after the version of morvane_gen alone, and the newest
# entry of their changelog is about them.
source "$SOURCE/tests/documents/test_folder.sh"

dpkg-parsechangelog --file "$SOURCE/packaging/changelog" --show-field Version >found
sed -n 's/^set(CPACK_PACKAGE_VERSION "\(.*\)")$/\1/p' "$BUILD/CPackConfig.cmake" >expected
same "the version of the packages" expected found
version=$(<found)
[ "$version" = 2.1.6+1.0.0 ] || fail "the packages have the version $version"
dpkg --compare-versions "$version" gt 2.1.6 || fail "$version does not come after 2.1.6"
grep -qxF "## $version" "$SOURCE/CHANGELOG.md" || fail "CHANGELOG.md has no section $version"
