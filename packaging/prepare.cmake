# The rights in the package do not follow the umask of whoever builds it.
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY}
                COMMAND_ERROR_IS_FATAL ANY)

# Names have the version in them: only the newest package stays, so that "varek_*.deb" is one.
file(GLOB OLDER ${CPACK_PACKAGE_DIRECTORY}/varek_*.deb)
if(OLDER)
  file(REMOVE ${OLDER})
endif()
