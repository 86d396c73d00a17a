# Runs on the staged packages before they are closed: manual pages and change logs are compressed, always to
# the same bytes.
file(GLOB_RECURSE files ${CPACK_TEMPORARY_DIRECTORY}/*.[1-8] ${CPACK_TEMPORARY_DIRECTORY}/changelog)
foreach(file IN LISTS files)
    execute_process(COMMAND gzip -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
