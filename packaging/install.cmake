# Where an installation puts things. lib/ardane is the program's folder, which looks as it does in the build: the
# programs beside links to what ships with them, which lies in share/ardane.
include(GNUInstallDirs)
set(program_folder lib/ardane)
set(shipped_folder ${CMAKE_INSTALL_DATADIR}/ardane)
set(linux ${CMAKE_CURRENT_LIST_DIR}/linux)

# install_link(LINK TARGET): a symbolic link, both told from the prefix.
function(install_link link target)
  cmake_path(GET link PARENT_PATH folder)
  file(RELATIVE_PATH there /${folder} /${target})
  set(made ${CMAKE_BINARY_DIR}/links/${link})
  cmake_path(GET made PARENT_PATH made_in)
  file(MAKE_DIRECTORY ${made_in})
  file(CREATE_LINK ${there} ${made} SYMBOLIC)
  install(FILES ${made} DESTINATION ${folder})
endfunction()

# install_filled(NAME FOLDER): a file in which the release and the paths stand.
function(install_filled name folder)
  configure_file(${linux}/${name}.in ${CMAKE_BINARY_DIR}/${name} @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/${name} DESTINATION ${folder})
endfunction()

function(install_program program)
  install(TARGETS ${program} DESTINATION ${program_folder})
  install_link(${CMAKE_INSTALL_BINDIR}/${program} ${program_folder}/${program})
  install_filled(${program}.6 ${CMAKE_INSTALL_MANDIR}/fr/man6)
  # Whoever plays reads French, whatever the desktop speaks.
  install_link(${CMAKE_INSTALL_MANDIR}/man6/${program}.6 ${CMAKE_INSTALL_MANDIR}/fr/man6/${program}.6)
endfunction()

file(GLOB shipped RELATIVE ${PROJECT_SOURCE_DIR}/resources ${PROJECT_SOURCE_DIR}/resources/*)
list(FILTER shipped EXCLUDE REGEX "[.]txt$")  # compiled into the programs
foreach(name IN LISTS shipped)
  set(path ${PROJECT_SOURCE_DIR}/resources/${name})
  if(IS_DIRECTORY ${path})
    install(DIRECTORY ${path} DESTINATION ${shipped_folder} PATTERN "*.svg" EXCLUDE)
  else()
    install(FILES ${path} DESTINATION ${shipped_folder})
  endif()
  install_link(${program_folder}/${name} ${shipped_folder}/${name})
endforeach()
# By this file the programs know that the folder is the system's.
install(FILES ${linux}/installation.txt DESTINATION ${shipped_folder})
install_link(${program_folder}/installation.txt ${shipped_folder}/installation.txt)

install_program(ardane-pilote)
install(FILES ${PROJECT_SOURCE_DIR}/docs/pilot.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/ardane-pilote)
if(TARGET ardane)
  install_program(ardane)
  install(TARGETS ardane-son ardane-web LIBRARY DESTINATION ${program_folder})
  install_filled(ardane.desktop ${CMAKE_INSTALL_DATADIR}/applications)
  install_filled(example.mirabonde.ardane.metainfo.xml ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${linux}/ardane.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME ardane.xml)
  set(icons ${PROJECT_SOURCE_DIR}/resources/images/icons)
  foreach(size 16 24 32 48 64 128 256)
    install(FILES ${icons}/ardane-${size}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME ardane.png)
  endforeach()
  install(FILES ${icons}/ardane.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
