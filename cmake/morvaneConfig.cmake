# find_package(morvane) finds the program morvane and adds:
#
#     morvane_add_package(TARGET net FOLDER out PACKAGE net.bin [VPROC])
#
# A target that packs the folder of the graph compiler into the package, with vproc records if VPROC is
# given. FOLDER is relative to the current source folder, PACKAGE to the current binary folder. The package
# is made again when an image or a header changes. It is also made again when files are added to the folder
# or removed from it, unless the package itself lies there. The cache variable MORVANE_PROGRAM holds the
# path of the program.

# Programs that were moved are looked for again.
if(MORVANE_PROGRAM AND NOT EXISTS "${MORVANE_PROGRAM}")
  unset(MORVANE_PROGRAM CACHE)
endif()
find_program(MORVANE_PROGRAM morvane HINTS "${CMAKE_CURRENT_LIST_DIR}/../../../bin")
if(NOT MORVANE_PROGRAM)
  set(morvane_FOUND FALSE)
  set(morvane_NOT_FOUND_MESSAGE "the program morvane was not found")
  return()
endif()

cmake_policy(PUSH)
cmake_policy(VERSION 3.20)

function(morvane_add_package)
  cmake_parse_arguments(PARSE_ARGV 0 arg "VPROC" "TARGET;FOLDER;PACKAGE" "")
  if(DEFINED arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "morvane_add_package: unknown arguments ${arg_UNPARSED_ARGUMENTS}")
  endif()
  foreach(name TARGET FOLDER PACKAGE)
    if("${arg_${name}}" STREQUAL "")
      message(FATAL_ERROR "morvane_add_package: ${name} is missing")
    endif()
  endforeach()
  cmake_path(ABSOLUTE_PATH arg_FOLDER BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
  cmake_path(ABSOLUTE_PATH arg_PACKAGE BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE)
  # Writing the package changes the folder that it lies in, and would make it again at each build.
  cmake_path(GET arg_PACKAGE PARENT_PATH package_folder)
  cmake_path(IS_PREFIX arg_FOLDER "${arg_PACKAGE}" NORMALIZE lies_in_folder)
  add_custom_command(
    OUTPUT "${arg_PACKAGE}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${package_folder}"
    COMMAND "${MORVANE_PROGRAM}" pack "${arg_FOLDER}" --output "${arg_PACKAGE}" --depfile
            "${arg_PACKAGE}.d" --quiet "$<$<BOOL:${arg_VPROC}>:--vproc>"
    DEPENDS "${MORVANE_PROGRAM}" "$<$<NOT:$<BOOL:${lies_in_folder}>>:${arg_FOLDER}>"
    DEPFILE "${arg_PACKAGE}.d"
    COMMENT "Packing ${arg_TARGET}"
    VERBATIM COMMAND_EXPAND_LISTS)
  add_custom_target("${arg_TARGET}" ALL DEPENDS "${arg_PACKAGE}")
endfunction()

cmake_policy(POP)
