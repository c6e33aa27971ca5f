# Runs over the staged files before they are packed: what depends on when and where they were built goes.

# Everything bears the time of the release, which stands in the changelog; cpack takes it from here too.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../packaging/changelog signature REGEX "^ -- " LIMIT_COUNT 1)
string(REGEX REPLACE "^ -- .*>  " "" release_date "${signature}")
execute_process(COMMAND date "--date=${release_date}" +%s OUTPUT_VARIABLE release_time
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(ENV{SOURCE_DATE_EPOCH} ${release_time})

execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -exec touch --no-dereference
                        --date=@${release_time} {} + COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -name "*.so" -exec chmod 0644 {} +
                        COMMAND_ERROR_IS_FATAL ANY)
