# What stands in the program's folder on Windows, and the sign and number that the system shows of a program.
enable_language(RC)
set(icons ${PROJECT_SOURCE_DIR}/resources/images/icons)
set(sign ${CMAKE_BINARY_DIR}/ardane.ico)
set(sizes 16 24 32 48 64 128 256)
list(TRANSFORM sizes REPLACE "(.+)" "${icons}/ardane-\\1.png" OUTPUT_VARIABLE pictures)
find_program(ICOTOOL icotool REQUIRED)
add_custom_command(OUTPUT ${sign} COMMAND ${ICOTOOL} --create --output=${sign} ${pictures} DEPENDS ${pictures})
add_custom_target(sign DEPENDS ${sign})
string(REPLACE "." "," comma_version ${PROJECT_VERSION},0)

# ardane_described(PROGRAM WORDS): what the system tells of an executable.
function(ardane_described program words)
  set(resource ${CMAKE_BINARY_DIR}/${program}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resource} @ONLY)
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS ${sign})
  target_sources(${program} PRIVATE ${resource})
  add_dependencies(${program} sign)
endfunction()
ardane_described(ardane "L'Ardane et ses provinces")
ardane_described(ardane-pilote "L'Ardane et ses provinces, sans écran")
set_target_properties(ardane PROPERTIES WIN32_EXECUTABLE ON)

install(TARGETS ardane ardane-pilote RUNTIME DESTINATION .)
install(TARGETS ardane-son ardane-web LIBRARY DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/ DESTINATION . PATTERN "*.txt" EXCLUDE PATTERN "*.svg" EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/resources/aide/contextes.txt ${PROJECT_SOURCE_DIR}/resources/aide/recherche.txt
        DESTINATION aide)
