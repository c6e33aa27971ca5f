# The distribution packages that cpack makes: .deb and .tar.gz.

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME morvane-gen)
# Both versions: each new one of either program comes after those before it.
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION}+${cli_version})
set(CPACK_PACKAGE_CONTACT "morvane_gen maintainers <maintainers@morvane.example>")
# Each Debian package has a synopsis of its own: the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_UNSPECIFIED_DESCRIPTION
    "packs compiled DAG images into one package file
morvane_gen packs the output folder of a neural-network graph compiler into
one binary package that a loader on an AArch64 Linux board reads. It also
inspects such a package: it prints a report, extracts the images and
regenerates the headers.

morvane works on the same folders and packages: it packs without ever
leaving half a file, checks, shows and compares packages, and extracts
images.")
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
# Programs of one architecture serve packages of every other one.
set(CPACK_DEBIAN_PACKAGE_MULTIARCH foreign)
# The library of one architecture serves that architecture only, beside those of others.
set(CPACK_DEBIAN_VIEW_PACKAGE_MULTIARCH same)
if(CMAKE_VERSION VERSION_LESS 3.31)
  # This cpack does not know that field yet. It writes the value of a known one as it is.
  set(CPACK_DEBIAN_PACKAGE_PRIORITY "optional\nMulti-Arch: ${CPACK_DEBIAN_PACKAGE_MULTIARCH}")
  set(CPACK_DEBIAN_VIEW_PACKAGE_PRIORITY "optional\nMulti-Arch: ${CPACK_DEBIAN_VIEW_PACKAGE_MULTIARCH}")
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)

if(CMAKE_CROSSCOMPILING)
  # dpkg-shlibdeps knows the libraries of the host only.
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
  set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_DEPENDS "libc6 (>= 2.34), libgcc-s1 (>= 3.0), libstdc++6 (>= 11)")
else()
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
endif()

set(CPACK_SYSTEM_NAME ${CMAKE_SYSTEM_PROCESSOR}-linux)

# Two Debian packages: the tool with everything that belongs to no component, and the library of loaders,
# which is static and needs nothing.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified view)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME morvane-gen)
set(CPACK_DEBIAN_VIEW_PACKAGE_NAME libmorvane-view-dev)
set(CPACK_DEBIAN_VIEW_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_VIEW_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_VIEW_DESCRIPTION
    "reader of morvane_gen packages for loaders
libmorvane_view.a opens a package that lies in memory, checks it once and
hands out its DAGs, ports and images without a copy. It is freestanding C99.
A proof shows that no package makes it read outside of the package.")

# A package has the same bytes on every machine.
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/normalise_package.cmake)

# What "make package_source" makes: the tree without what is built in it.
set(CPACK_SOURCE_GENERATOR TGZ)
string(REGEX REPLACE "([][+.*()^$?|\\])" "\\\\\\1" tree "${PROJECT_SOURCE_DIR}")
set(CPACK_SOURCE_IGNORE_FILES "^${tree}/([.]git|build(-[^/]*)?|dist)/")

include(CPack)
