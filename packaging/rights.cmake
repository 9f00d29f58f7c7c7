# The rights in the package do not follow the umask of whoever builds it.
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY}
                COMMAND_ERROR_IS_FATAL ANY)
