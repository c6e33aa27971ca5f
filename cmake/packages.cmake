# The distribution packages that cpack makes: .deb and .tar.gz.

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME morvane-gen)
set(CPACK_PACKAGE_CONTACT "morvane_gen maintainers <maintainers@morvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "packs compiled DAG images into one package file")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "morvane_gen packs the output folder of a neural-network graph compiler into
one binary package that a loader on an AArch64 Linux board reads. It also
inspects such a package: it prints a report, extracts the images and
regenerates the headers.")
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)

if(CMAKE_CROSSCOMPILING)
  # dpkg-shlibdeps knows the libraries of the host only.
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6 (>= 2.34), libgcc-s1 (>= 3.0), libstdc++6 (>= 11)")
else()
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
endif()

set(CPACK_SYSTEM_NAME ${CMAKE_SYSTEM_PROCESSOR}-linux)

# Every file in a package bears the time of the release, and the rights that Debian asks for.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/normalise_package.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
                                                GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

include(CPack)
