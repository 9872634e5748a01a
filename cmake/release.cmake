# The release: its number is project(VERSION)'s, its day stands in the changelog, whose first heading must be it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md headings REGEX "^## ")
list(POP_FRONT headings latest)
if(NOT latest MATCHES "^## ([0-9.]+), (20[0-9][0-9]-[0-9][0-9]-[0-9][0-9])$" OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "CHANGELOG.md must begin with \"## ${PROJECT_VERSION}, YEAR-MONTH-DAY\", not with \"${latest}\"")
endif()
set(ARDANE_RELEASE_DATE ${CMAKE_MATCH_2})
