# Where an installation puts things: the program's folder whole, its entry in the desktop's menus, its icon.
set(program_folder lib/ardane)
install(TARGETS ardane DESTINATION ${program_folder})
install(TARGETS ardane-son ardane-web LIBRARY DESTINATION ${program_folder})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/ DESTINATION ${program_folder}
        PATTERN "*.txt" EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/resources/aide/contextes.txt ${PROJECT_SOURCE_DIR}/resources/aide/recherche.txt
        DESTINATION ${program_folder}/aide)
configure_file(${CMAKE_CURRENT_LIST_DIR}/ardane.desktop.in ${CMAKE_BINARY_DIR}/ardane.desktop @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/ardane.desktop DESTINATION share/applications)
foreach(size 16 24 32 48 64 128 256)
  install(FILES ${PROJECT_SOURCE_DIR}/resources/images/icons/ardane-${size}.png
          DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME ardane.png)
endforeach()
