# Runs over the finished .deb and .tar.gz packages and packs them again. What cpack writes depends on the time, on
# the order of the files on the disk, on the size of a folder there, on the umask and on the user.

# run WORD ...: a command that must succeed.
function(run)
  execute_process(COMMAND ${ARGV} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The time of the release, from the changelog; dpkg-deb takes it from the environment.
function(find_release_time)
  file(STRINGS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../packaging/changelog signature REGEX "^ -- " LIMIT_COUNT 1)
  string(REGEX REPLACE "^ -- .*>  " "" release_date "${signature}")
  execute_process(COMMAND date "--date=${release_date}" +%s OUTPUT_VARIABLE release_time
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{SOURCE_DATE_EPOCH} ${release_time})
endfunction()

# Everything has the time of the release and the permissions that Debian asks for.
function(normalise_files folder)
  run(chmod -R u=rwX,go=rX ${folder})
  run(find ${folder} -name "*.so" -exec chmod 0644 {} +)
  run(find ${folder} -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +)
endfunction()

function(normalise_archive package folder)
  file(MAKE_DIRECTORY ${folder})
  run(tar --extract --file=${package} --directory=${folder})
  normalise_files(${folder})
  execute_process(
    COMMAND tar --create --format=gnu --sort=name --owner=root:0 --group=root:0 --directory=${folder}
            ${CPACK_PACKAGE_FILE_NAME}
    COMMAND gzip --best --no-name
    OUTPUT_FILE ${package} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Debian's zsh looks for the completions of packages in a folder of its own.
function(move_zsh_completions folder)
  set(zsh ${folder}/usr/share/zsh)
  if(EXISTS ${zsh}/site-functions)
    file(RENAME ${zsh}/site-functions ${zsh}/vendor-completions)
    run(sed -i s,/zsh/site-functions/,/zsh/vendor-completions/, ${folder}/DEBIAN/md5sums)
  endif()
endfunction()

# As Debian counts: the KiB of each file rounded up, and one for everything else.
function(count_kib folder kib)
  execute_process(
    COMMAND find ${folder} -path ${folder}/DEBIAN -prune -o -type f -printf "%s\n" -o -printf "1\n"
    COMMAND awk "{ kib += int(($1 + 1023) / 1024) } END { print kib }"
    OUTPUT_VARIABLE counted OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${kib} ${counted} PARENT_SCOPE)
endfunction()

function(normalise_debian package folder)
  set(control ${folder}/DEBIAN)
  run(dpkg-deb --raw-extract ${package} ${folder})
  move_zsh_completions(${folder})
  count_kib(${folder} kib)
  run(sed -i "s/^Installed-Size: .*/Installed-Size: ${kib}/" ${control}/control)
  run(env LC_ALL=C sort --key=2 --output=${control}/md5sums ${control}/md5sums)
  normalise_files(${folder})
  run(dpkg-deb --root-owner-group -Zgzip --build ${folder} ${package})
endfunction()

find_release_time()
set(folder ${CPACK_TOPLEVEL_DIRECTORY}/normalised)
foreach(package ${CPACK_PACKAGE_FILES})
  file(REMOVE_RECURSE ${folder})
  if(CPACK_GENERATOR STREQUAL "DEB")
    normalise_debian(${package} ${folder})
  elseif(CPACK_GENERATOR STREQUAL "TGZ")
    normalise_archive(${package} ${folder})
  endif()
endforeach()
file(REMOVE_RECURSE ${folder})
