# cpack runs this to pack the archive again, with root as the owner.
if(CPACK_PACKAGE_FILES MATCHES "\\.tar\\.gz$")
    execute_process(COMMAND tar -cz --owner=root:0 --group=root:0 --sort=name
        -f ${CPACK_PACKAGE_FILES} -C ${CPACK_TEMPORARY_DIRECTORY} .
        COMMAND_ERROR_IS_FATAL ANY)
endif()
