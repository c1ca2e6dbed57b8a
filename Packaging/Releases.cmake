# Makes PERCHLY_RELEASES, the releases of the AppStream metadata, and PERCHLY_RELEASE_DATE from
# CHANGELOG.md, whose entries look like this, the newest first:
#
#     ## 1.2.3 (2026-12-31)
#
#     - A change, on one line.

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
file(READ ${PROJECT_SOURCE_DIR}/CHANGELOG.md PERCHLY_RELEASES)
if(NOT PERCHLY_RELEASES MATCHES "^[^\n]*\n+## ([0-9.]+) \\(([-0-9]+)\\)\n"
    OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
    message(FATAL_ERROR "CHANGELOG.md does not begin with version ${PROJECT_VERSION}")
endif()
set(PERCHLY_RELEASE_DATE ${CMAKE_MATCH_2})
string(FIND "${PERCHLY_RELEASES}" "## " first)
string(SUBSTRING "${PERCHLY_RELEASES}" ${first} -1 PERCHLY_RELEASES)
string(REPLACE "&" "&amp;" PERCHLY_RELEASES "${PERCHLY_RELEASES}")
string(REPLACE "<" "&lt;" PERCHLY_RELEASES "${PERCHLY_RELEASES}")
string(REGEX REPLACE "\n- ([^\n]+)" "\n          <li>\\1</li>"
    PERCHLY_RELEASES "${PERCHLY_RELEASES}")
string(REGEX REPLACE "## ([0-9.]+) \\(([-0-9]+)\\)\n*((\n *<li>[^\n]+)+)\n*"
    "    <release version=\"\\1\" date=\"\\2\">
      <description>
        <ul>\\3
        </ul>
      </description>
    </release>
" PERCHLY_RELEASES "${PERCHLY_RELEASES}")
