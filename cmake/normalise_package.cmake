# Runs over the staged files before they are packed: what depends on when and where they were built goes.

execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -exec touch --no-dereference
                        --date=@$ENV{SOURCE_DATE_EPOCH} {} + COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -name "*.so" -exec chmod 0644 {} +
                        COMMAND_ERROR_IS_FATAL ANY)
