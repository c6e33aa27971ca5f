# find_package(morvane) finds the program morvane and adds:
#
#     morvane_add_package(TARGET net FOLDER out PACKAGE net.bin [VPROC] [WERROR] [IGNORE code ...] [BASELINE file])
#
# A target that packs the folder of the graph compiler into the package, with vproc records if VPROC is given. Each run
# that packs shows what it finds; with WERROR a warning makes it fail. IGNORE and BASELINE are the options of
# morvane pack. FOLDER and BASELINE are relative to the current source folder, PACKAGE to the current binary folder. The
# package is made again when an image, a header or the baseline changes. It is also made again when files are added to
# the folder or removed from it, unless the package itself lies there. The cache variable MORVANE_PROGRAM holds the path
# of the program. In a cross build that is one of the host: this file may lie among the files of the target, so the
# folder beside it comes last.

# Programs that were moved are looked for again.
if(MORVANE_PROGRAM AND NOT EXISTS "${MORVANE_PROGRAM}")
  unset(MORVANE_PROGRAM CACHE)
endif()
set(morvane_beside "${CMAKE_CURRENT_LIST_DIR}/../../../bin")
if(CMAKE_CROSSCOMPILING AND CMAKE_FIND_ROOT_PATH_MODE_PROGRAM STREQUAL "ONLY")
  find_program(MORVANE_PROGRAM morvane PATHS "${morvane_beside}")
elseif(CMAKE_CROSSCOMPILING)
  # The prefixes of CMake hold programs of the target, too.
  find_program(MORVANE_PROGRAM morvane PATHS "${morvane_beside}" NO_PACKAGE_ROOT_PATH NO_CMAKE_PATH
               NO_CMAKE_ENVIRONMENT_PATH NO_CMAKE_SYSTEM_PATH NO_CMAKE_FIND_ROOT_PATH)
else()
  find_program(MORVANE_PROGRAM morvane HINTS "${morvane_beside}")
endif()
unset(morvane_beside)
if(NOT MORVANE_PROGRAM)
  set(morvane_FOUND FALSE)
  set(morvane_NOT_FOUND_MESSAGE "the program morvane was not found")
  return()
endif()

cmake_policy(PUSH)
cmake_policy(VERSION 3.20)

function(morvane_add_package)
  cmake_parse_arguments(PARSE_ARGV 0 arg "VPROC;WERROR" "TARGET;FOLDER;PACKAGE;BASELINE" "IGNORE")
  if(DEFINED arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "morvane_add_package: unknown arguments ${arg_UNPARSED_ARGUMENTS}")
  endif()
  foreach(name TARGET FOLDER PACKAGE)
    if("${arg_${name}}" STREQUAL "")
      message(FATAL_ERROR "morvane_add_package: ${name} is missing")
    endif()
  endforeach()
  if(BASELINE IN_LIST arg_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "morvane_add_package: BASELINE names no file")
  endif()
  cmake_path(ABSOLUTE_PATH arg_FOLDER BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
  cmake_path(ABSOLUTE_PATH arg_PACKAGE BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE)
  set(options "")
  set(baseline "")
  if(arg_VPROC)
    list(APPEND options --vproc)
  endif()
  if(arg_WERROR)
    list(APPEND options --werror)
  endif()
  if(DEFINED arg_IGNORE)
    list(JOIN arg_IGNORE "," codes)
    list(APPEND options --ignore "${codes}")
  endif()
  if(DEFINED arg_BASELINE)
    cmake_path(ABSOLUTE_PATH arg_BASELINE BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE OUTPUT_VARIABLE
               baseline)
    list(APPEND options --baseline "${baseline}")
  endif()
  # Writing the package changes the folder that it lies in, and would make it again at each build.
  cmake_path(GET arg_PACKAGE PARENT_PATH package_folder)
  cmake_path(IS_PREFIX arg_FOLDER "${arg_PACKAGE}" NORMALIZE lies_in_folder)
  add_custom_command(
    OUTPUT "${arg_PACKAGE}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${package_folder}"
    COMMAND "${MORVANE_PROGRAM}" pack "${arg_FOLDER}" --output "${arg_PACKAGE}" --depfile
            "${arg_PACKAGE}.d" ${options}
    DEPENDS "${MORVANE_PROGRAM}" "$<$<NOT:$<BOOL:${lies_in_folder}>>:${arg_FOLDER}>" ${baseline}
    DEPFILE "${arg_PACKAGE}.d"
    COMMENT "Packing ${arg_TARGET}"
    VERBATIM)
  add_custom_target("${arg_TARGET}" ALL DEPENDS "${arg_PACKAGE}")
endfunction()

cmake_policy(POP)
