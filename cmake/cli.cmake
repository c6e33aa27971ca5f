# morvane, a second executable, made of the same code as morvane_gen and of more. It
# needs headers that morvane_gen does not need, and is left out where they are missing.

# Its own version, which its code defines.
file(STRINGS src/cli/output/program_version.h cli_version REGEX "program_version = ")
string(REGEX REPLACE ".*\"(.*)\".*" "\\1" cli_version "${cli_version}")

# Installs the program with its manual, completions and CMake module, if it is built.
function(install_cli)
  if(TARGET morvane_cli)
    install(TARGETS morvane_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install_manual(morvane.1)
    include(CMakePackageConfigHelpers)
    set(version_file ${PROJECT_BINARY_DIR}/morvaneConfigVersion.cmake)
    write_basic_package_version_file(${version_file} VERSION ${cli_version} COMPATIBILITY SameMajorVersion
                                     ARCH_INDEPENDENT)
    install(FILES cmake/morvaneConfig.cmake ${version_file} DESTINATION share/cmake/morvane)
    install_completions(morvane)
    add_dependencies(shipped morvane_cli)
  endif()
endfunction()

set(MORVANE_CLI "" CACHE STRING "Build morvane: ON, OFF, or empty for where its headers are")
if(NOT MORVANE_CLI AND NOT MORVANE_CLI STREQUAL "")
  return()
endif()

# A link to each header in a folder of the build: /usr/include itself would come before the headers of a
# cross compiler. The headers are independent of the machine, so those of the host serve every target.
set(cli_headers ${PROJECT_BINARY_DIR}/cli_headers)
file(MAKE_DIRECTORY ${cli_headers})
set(missing "")
function(link_header file linked package)
  string(MAKE_C_IDENTIFIER "morvane_${linked}_folder" folder)
  find_path(${folder} ${file} NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(${folder})
  if(${folder})
    file(CREATE_LINK ${${folder}}/${linked} ${cli_headers}/${linked} SYMBOLIC)
  else()
    set(missing ${missing} "${file} (Debian: ${package})" PARENT_SCOPE)
  endif()
endfunction()
link_header(CLI/CLI.hpp CLI libcli11-dev)
link_header(nlohmann/json.hpp nlohmann nlohmann-json3-dev)
link_header(xxhash.h xxhash.h libxxhash-dev)

if(missing)
  list(JOIN missing ", " missing)
  if(MORVANE_CLI)
    message(FATAL_ERROR "morvane cannot be built: missing ${missing}")
  endif()
  message(STATUS "morvane is left out: missing ${missing}")
  return()
endif()

# The target morvane is the library of morvane_gen.
file(GLOB_RECURSE cli_sources CONFIGURE_DEPENDS src/cli/*.cpp)
list(REMOVE_ITEM cli_sources ${PROJECT_SOURCE_DIR}/src/cli/main.cpp)
# explain has the words of the document.
file(READ docs/findings.md findings_page)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/findings.md)
set(page_source ${PROJECT_BINARY_DIR}/findings_page.cpp)
configure_file(src/cli/findings/findings_page.cpp.in ${page_source} @ONLY)
add_library(morvane_cli_core OBJECT ${cli_sources} ${page_source})
target_include_directories(morvane_cli_core SYSTEM PRIVATE ${cli_headers})
target_link_libraries(morvane_cli_core PUBLIC morvane_core morvane_view)

add_executable(morvane_cli src/cli/main.cpp)
target_link_libraries(morvane_cli PRIVATE morvane_cli_core morvane_core)
set_target_properties(morvane_cli PROPERTIES OUTPUT_NAME morvane)
