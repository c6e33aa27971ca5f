# What is installed, and where.

set(CMAKE_INSTALL_DOCDIR share/doc/morvane-gen CACHE PATH "Where the documents go")
set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Where libraries go")
include(GNUInstallDirs)

# The library is the program's own: it lies in a private folder that only the program looks into, or
# beside the program as the build leaves it. The run path is written once, at the build: a longer one
# that is put in later leaves empty entries, which stand for whatever folder the user is in.
set(private_libdir ${CMAKE_INSTALL_LIBDIR}/morvane-gen)
file(RELATIVE_PATH from_program_to_library "/${CMAKE_INSTALL_BINDIR}" "/${private_libdir}")
set_target_properties(
  morvane_gen PROPERTIES BUILD_WITH_INSTALL_RPATH ON
                         INSTALL_RPATH "$ORIGIN;$ORIGIN/${from_program_to_library}")
install(TARGETS morvane_gen RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS morvane LIBRARY DESTINATION ${private_libdir})

install(FILES src/format/include/morvane/package_format.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/morvane)
install(FILES completions/morvane_gen.bash DESTINATION share/bash-completion/completions
        RENAME morvane_gen)
install(FILES completions/_morvane_gen DESTINATION share/zsh/vendor-completions)
install(
  FILES README.md
        CONTRIBUTING.md
        docs/architecture.md
        docs/data_flow.svg
        docs/header_macros.md
        docs/package.ksy
        docs/package_format.md
        docs/package_layout.svg
        docs/performance.md
        docs/testing.md
        packaging/copyright
  DESTINATION ${CMAKE_INSTALL_DOCDIR})

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
