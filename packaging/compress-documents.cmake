# Run by cpack on the files to be packaged: Debian wants these compressed, without a date inside.
file(GLOB_RECURSE documents
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.1
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*changelog.Debian)
foreach(document IN LISTS documents)
    execute_process(COMMAND gzip -9n ${document} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
