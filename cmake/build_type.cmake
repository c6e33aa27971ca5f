# The build type: Release when none is given. An unknown one, such as a name with a spelling error, would be
# built without optimisation and hardening.

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

set(build_types Debug Release RelWithDebInfo MinSizeRel)
string(TOLOWER "${build_types}" lower_case_types)
string(TOLOWER "${CMAKE_BUILD_TYPE}" lower_case_type)
if(NOT lower_case_type IN_LIST lower_case_types)
  list(JOIN build_types ", " known_types)
  message(FATAL_ERROR "CMAKE_BUILD_TYPE is ${CMAKE_BUILD_TYPE}; it must be one of ${known_types}")
endif()
