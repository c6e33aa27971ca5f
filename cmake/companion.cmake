# morvane, the companion program: a second executable, made of the same code as morvane_gen and of more. It
# needs headers that morvane_gen does not need, and is left out where they are missing.

# Installs the program with its manual, completions and CMake module, if it is built.
function(install_companion)
  if(TARGET morvane_companion)
    install(TARGETS morvane_companion RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install_manual(morvane.1)
    include(CMakePackageConfigHelpers)
    set(version_file ${PROJECT_BINARY_DIR}/morvaneConfigVersion.cmake)
    write_basic_package_version_file(${version_file} COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
    install(FILES cmake/morvaneConfig.cmake ${version_file} DESTINATION share/cmake/morvane)
    install_completions(morvane)
    add_dependencies(shipped morvane_companion)
  endif()
endfunction()

set(MORVANE_COMPANION "" CACHE STRING "Build morvane: ON, OFF, or empty for where its headers are")
if(NOT MORVANE_COMPANION AND NOT MORVANE_COMPANION STREQUAL "")
  return()
endif()

# A link to each header in a folder of the build: /usr/include itself would come before the headers of a
# cross compiler. The headers are independent of the machine, so those of the host serve every target.
set(companion_headers ${PROJECT_BINARY_DIR}/companion_headers)
file(MAKE_DIRECTORY ${companion_headers})
set(missing "")
function(link_header file linked package)
  string(MAKE_C_IDENTIFIER "morvane_${linked}_folder" folder)
  find_path(${folder} ${file} NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(${folder})
  if(${folder})
    file(CREATE_LINK ${${folder}}/${linked} ${companion_headers}/${linked} SYMBOLIC)
  else()
    set(missing ${missing} "${file} (Debian: ${package})" PARENT_SCOPE)
  endif()
endfunction()
link_header(CLI/CLI.hpp CLI libcli11-dev)
link_header(nlohmann/json.hpp nlohmann nlohmann-json3-dev)
link_header(xxhash.h xxhash.h libxxhash-dev)

if(missing)
  list(JOIN missing ", " missing)
  if(MORVANE_COMPANION)
    message(FATAL_ERROR "morvane cannot be built: missing ${missing}")
  endif()
  message(STATUS "morvane is left out: missing ${missing}")
  return()
endif()

# The target morvane is the library of morvane_gen.
file(GLOB companion_sources CONFIGURE_DEPENDS src/companion/*.cpp src/companion/lint/*.cpp
     src/companion/report/*.cpp)
list(REMOVE_ITEM companion_sources ${PROJECT_SOURCE_DIR}/src/companion/main.cpp)
add_library(morvane_companion_core OBJECT ${companion_sources})
target_include_directories(morvane_companion_core SYSTEM PRIVATE ${companion_headers})
target_link_libraries(morvane_companion_core PUBLIC morvane_core morvane_view)

add_executable(morvane_companion src/companion/main.cpp)
target_link_libraries(morvane_companion PRIVATE morvane_companion_core morvane_core)
set_target_properties(morvane_companion PROPERTIES OUTPUT_NAME morvane)
