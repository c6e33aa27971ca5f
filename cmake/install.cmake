# What is installed, and where.

# GNUInstallDirs gives a folder from the command line its type. Given here, a relative one would become absolute.
if(NOT DEFINED CMAKE_INSTALL_DOCDIR)
  set(CMAKE_INSTALL_DOCDIR share/doc/morvane-gen CACHE PATH "Where the documents go")
endif()
if(CMAKE_LIBRARY_ARCHITECTURE AND NOT DEFINED CMAKE_INSTALL_LIBDIR)
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Where libraries go")
endif()
include(GNUInstallDirs)

# Builds what is installed and nothing else, no tests.
add_custom_target(shipped)

# The programs and their library lie together in a private folder, as the build leaves them.
set(private_folder ${CMAKE_INSTALL_LIBDIR}/morvane-gen)
install(TARGETS morvane LIBRARY DESTINATION ${private_folder})

# Users start a program through a link. The installed program is linked for itself. Its run path
# also names the folder of the Debian package: where /proc is not mounted, the dynamic linker cannot tell
# what $ORIGIN is. The run path is not edited in the built program: that would need room there, made of empty
# entries, and an empty entry means the folder the user is in.
function(install_program name)
  get_target_property(sources ${name} SOURCES)
  get_target_property(folders ${name} INCLUDE_DIRECTORIES)
  get_target_property(libraries ${name} LINK_LIBRARIES)
  add_executable(${name}_installed ${sources})
  target_include_directories(${name}_installed PRIVATE ${folders})
  target_link_libraries(${name}_installed PRIVATE ${libraries})
  set_target_properties(
    ${name}_installed
    PROPERTIES OUTPUT_NAME ${name}
               RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/installed
               BUILD_WITH_INSTALL_RPATH ON
               INSTALL_RPATH "$ORIGIN;/usr/${private_folder}")
  install(TARGETS ${name}_installed RUNTIME DESTINATION ${private_folder})

  set(link ${PROJECT_BINARY_DIR}/link/${name})
  file(RELATIVE_PATH link_target "/${CMAKE_INSTALL_BINDIR}" "/${private_folder}/${name}")
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/link)
  file(CREATE_LINK ${link_target} ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION ${CMAKE_INSTALL_BINDIR})
  add_dependencies(shipped ${name} ${name}_installed)
endfunction()

# Compressed without name and time, so that the same page gives the same bytes.
function(install_compressed source destination)
  get_filename_component(name ${source} NAME)
  set(compressed ${PROJECT_BINARY_DIR}/${name}.gz)
  add_custom_command(
    OUTPUT ${compressed}
    COMMAND gzip --best --no-name --stdout ${PROJECT_SOURCE_DIR}/${source} > ${compressed}
    DEPENDS ${PROJECT_SOURCE_DIR}/${source}
    VERBATIM)
  add_custom_target(compress_${name} ALL DEPENDS ${compressed})
  add_dependencies(shipped compress_${name})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()

function(install_manual page)
  install_compressed(docs/${page} ${CMAKE_INSTALL_MANDIR}/man1)
endfunction()

# In a Debian package the zsh completion lies elsewhere: see normalise_package.cmake.
function(install_completions program)
  install(FILES completions/${program}.bash DESTINATION share/bash-completion/completions
          RENAME ${program})
  install(FILES completions/_${program} DESTINATION share/zsh/site-functions)
endfunction()

install_program(morvane_gen)
install_manual(morvane_gen.1)
install_completions(morvane_gen)

# The documents and the examples lie as in the source tree, so that links and commands work there too.
install(FILES README.md CONTRIBUTING.md CHANGELOG.md packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(
  DIRECTORY docs
  DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING
  PATTERN "*.md"
  PATTERN "*.svg"
  PATTERN "*.png"
  PATTERN "*.ksy"
  PATTERN "*.schema.json")
install(
  DIRECTORY examples
  DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING
  PATTERN "*.md"
  PATTERN "*.h"
  PATTERN "*.dvi"
  PATTERN "*.c"
  PATTERN "CMakeLists.txt"
  PATTERN "Makefile")
install_compressed(packaging/changelog ${CMAKE_INSTALL_DOCDIR})
