# What is installed, and where.

set(CMAKE_INSTALL_DOCDIR share/doc/morvane-gen CACHE PATH "Where the documents go")
set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Where libraries go")
include(GNUInstallDirs)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/link)

# The program and its library lie together in a private folder, as the build leaves them. Users start the
# program through a link.
set(private_folder ${CMAKE_INSTALL_LIBDIR}/morvane-gen)
install(TARGETS morvane LIBRARY DESTINATION ${private_folder})

# The installed program is linked for itself. In its run path the folder of the Debian package stands by
# name too: where /proc is not mounted, the dynamic linker cannot tell what $ORIGIN is. An edited run path
# would need room in the built program: empty entries, which stand for whatever folder the user is in.
add_executable(morvane_gen_installed src/launcher/main.cpp)
target_include_directories(morvane_gen_installed PRIVATE src)
target_link_libraries(morvane_gen_installed PRIVATE morvane morvane_flags)
set_target_properties(
  morvane_gen_installed
  PROPERTIES OUTPUT_NAME morvane_gen
             RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/installed
             BUILD_WITH_INSTALL_RPATH ON
             INSTALL_RPATH "$ORIGIN;/usr/${private_folder}")
install(TARGETS morvane_gen_installed RUNTIME DESTINATION ${private_folder})
file(RELATIVE_PATH link_target "/${CMAKE_INSTALL_BINDIR}" "/${private_folder}/morvane_gen")
file(CREATE_LINK ${link_target} ${PROJECT_BINARY_DIR}/link/morvane_gen SYMBOLIC)
install(FILES ${PROJECT_BINARY_DIR}/link/morvane_gen DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES src/format/include/morvane/package_format.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/morvane)
install(FILES completions/morvane_gen.bash DESTINATION share/bash-completion/completions
        RENAME morvane_gen)
install(FILES completions/_morvane_gen DESTINATION share/zsh/vendor-completions)
install(FILES README.md CONTRIBUTING.md CHANGELOG.md packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(
  DIRECTORY docs
  DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING
  PATTERN "*.md"
  PATTERN "*.svg"
  PATTERN "*.ksy")

# Compressed without name and time, so that the same page gives the same bytes.
function(install_compressed source name destination)
  set(compressed ${PROJECT_BINARY_DIR}/${name}.gz)
  add_custom_command(
    OUTPUT ${compressed}
    COMMAND gzip --best --no-name --stdout ${PROJECT_SOURCE_DIR}/${source} > ${compressed}
    DEPENDS ${PROJECT_SOURCE_DIR}/${source}
    VERBATIM)
  add_custom_target(compress_${name} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()

install_compressed(docs/morvane_gen.1 morvane_gen.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_compressed(packaging/changelog changelog ${CMAKE_INSTALL_DOCDIR})
