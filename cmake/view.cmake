# libmorvane_view.a, the reader of packages, and how it is installed: a component of its own.

file(STRINGS src/view/include/morvane/package_view.h view_version_lines
     REGEX "^#define MORVANE_VIEW_VERSION_(MAJOR|MINOR|PATCH) ")
list(TRANSFORM view_version_lines REPLACE ".* " "")
list(JOIN view_version_lines "." view_version)

add_library(morvane_view STATIC src/view/package_view.c)
add_library(morvane::view ALIAS morvane_view)
set_target_properties(morvane_view PROPERTIES EXPORT_NAME view)
target_include_directories(
  morvane_view PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/view/include>
                      $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/format/include>
                      $<INSTALL_INTERFACE:include>)
target_link_libraries(morvane_view PRIVATE $<BUILD_INTERFACE:morvane_flags>)
# The library calls nothing, so the compiler must add no call to it.
target_compile_options(morvane_view PRIVATE -ffreestanding -fno-stack-protector)

function(install_view)
  include(CMakePackageConfigHelpers)
  set(package ${CMAKE_INSTALL_LIBDIR}/cmake/morvane_view)
  set(documents share/doc/libmorvane-view-dev)
  set(sources src/view/package_view.c src/view/include/morvane/package_view.h
              src/format/include/morvane/package_format.h)
  list(SUBLIST sources 1 2 headers)

  write_basic_package_version_file(${PROJECT_BINARY_DIR}/morvane_viewConfigVersion.cmake
                                   VERSION ${view_version} COMPATIBILITY SameMajorVersion)
  file(RELATIVE_PATH prefix_from_libdir "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  # The file finds its prefix from where it lies, unless that is an absolute folder. Absolute folders stay as they
  # are.
  set(prefix "\${pcfiledir}/${prefix_from_libdir}")
  if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(prefix "${CMAKE_INSTALL_PREFIX}")
  endif()
  cmake_path(APPEND includedir_from_prefix "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
  cmake_path(APPEND libdir_from_prefix "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
  configure_file(packaging/morvane-view.pc.in ${PROJECT_BINARY_DIR}/morvane-view.pc @ONLY)

  install(TARGETS morvane_view EXPORT morvane_view ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          COMPONENT view)
  install(EXPORT morvane_view NAMESPACE morvane:: FILE morvane_viewConfig.cmake
          DESTINATION ${package} COMPONENT view)
  install(FILES ${PROJECT_BINARY_DIR}/morvane_viewConfigVersion.cmake DESTINATION ${package}
          COMPONENT view)
  install(FILES ${PROJECT_BINARY_DIR}/morvane-view.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT view)
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/morvane COMPONENT view)
  # For those who copy the library into their own tree.
  install(FILES src/view/package_view.c DESTINATION ${documents}/copy COMPONENT view)
  install(FILES ${headers} DESTINATION ${documents}/copy/morvane COMPONENT view)
  install(DIRECTORY examples/loader DESTINATION ${documents}/examples COMPONENT view)
  install(FILES packaging/copyright DESTINATION ${documents} COMPONENT view)
  install(FILES ${PROJECT_BINARY_DIR}/changelog.gz DESTINATION ${documents} COMPONENT view)
  add_dependencies(shipped morvane_view)
endfunction()
