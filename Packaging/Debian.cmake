# Configures CPack to make a Debian package. scripts/packages.txt names what it needs at run time
# beyond the libraries that dpkg-shlibdeps finds.

cmake_host_system_information(RESULT release QUERY DISTRIB_VERSION_ID)
if(NOT release)
    set(release 99) # testing and unstable have no release number
endif()

set_property(DIRECTORY APPEND PROPERTY
    CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/scripts/packages.txt)
file(STRINGS ${PROJECT_SOURCE_DIR}/scripts/packages.txt lines)
foreach(line IN LISTS lines)
    if(line MATCHES "^# ([A-Z][a-z]+ing( better)?)")
        set(section "${CMAKE_MATCH_1}")
    elseif(line MATCHES "^([^#|]*)(\\|(.+))?$")
        if(release LESS 13 AND CMAKE_MATCH_3)
            list(APPEND "packages ${section}" ${CMAKE_MATCH_3})
        else()
            list(APPEND "packages ${section}" ${CMAKE_MATCH_1})
        endif()
    endif()
endforeach()
list(JOIN "packages Running" ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
list(JOIN "packages Running better" ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", default-dbus-session-bus | dbus-session-bus")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "pipewire-pulse, mpv-mpris, picom | compositor")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME perchly)
set(CPACK_PACKAGE_CONTACT "The Perchly developers <developers@perchly.org>")
# Differs by release, so that an upgrade of Debian upgrades Perchly, too.
set(CPACK_DEBIAN_PACKAGE_RELEASE 1~deb${release})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION
"A small pill shows the focus timer, the track that is playing and the files
you hold. Point at it, and it opens into a shelf with your apps, widgets,
playback controls and tools.
.
Its workspace has one search over apps, note, clipboard, snippets and held
files. It also has your clipboard history, saved layouts, launch groups and
the meetings of the week. A mixer sets the volume of each program.")

set(CPACK_SET_DESTDIR ON) # so that the D-Bus service names the program's path in the package
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

execute_process(COMMAND date -Rud ${PERCHLY_RELEASE_DATE}
    OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_PERCHLY_CHANGELOG ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian)
configure_file(changelog.in ${CPACK_PERCHLY_CHANGELOG} @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/FinishPackage.cmake)
include(CPack)
