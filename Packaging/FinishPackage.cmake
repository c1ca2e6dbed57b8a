# Run by CPack on the installed files: strips the programs as dh_strip does, which CPack's own way
# does not, and compresses changelogs and man pages.

set(usr ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
file(GLOB programs ${usr}/bin/* ${usr}/libexec/perchly/*)
execute_process(
    COMMAND strip --remove-section=.comment --remove-section=.note ${programs}
    COMMAND_ERROR_IS_FATAL ANY)

set(documentation ${usr}/share/doc/perchly)
file(RENAME ${documentation}/CHANGELOG.md ${documentation}/changelog)
file(COPY_FILE ${CPACK_PERCHLY_CHANGELOG} ${documentation}/changelog.Debian)
file(GLOB_RECURSE pages ${usr}/share/man/*)
execute_process(
    COMMAND gzip -9n ${documentation}/changelog ${documentation}/changelog.Debian ${pages}
    COMMAND_ERROR_IS_FATAL ANY)
