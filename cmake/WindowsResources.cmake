# What Windows shows of a program: its icon, its version and who made it. `description` is its name in the list of tasks.
enable_language(RC)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(PROGRAM_ICON_FILE ${CMAKE_BINARY_DIR}/packaging/drukkeuring.ico)
set(ICON_MAKER ${CMAKE_SOURCE_DIR}/tools/pictures/make_icon.py ${CMAKE_SOURCE_DIR}/resources/pictures/program.svg)
add_custom_command(OUTPUT ${PROGRAM_ICON_FILE} COMMAND ${Python3_EXECUTABLE} ${ICON_MAKER} ${PROGRAM_ICON_FILE}
                   DEPENDS ${ICON_MAKER} VERBATIM)
add_custom_target(program_icon DEPENDS ${PROGRAM_ICON_FILE})
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packaging)

function(drukkeuring_windows_resources PROGRAM DESCRIPTION)
  set(MANIFEST ${CMAKE_CURRENT_BINARY_DIR}/${PROGRAM}.manifest)
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${PROGRAM}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/drukkeuring.manifest.in ${MANIFEST} @ONLY)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/drukkeuring.rc.in ${resources} @ONLY)
  set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS "${PROGRAM_ICON_FILE};${MANIFEST}")
  add_dependencies(${PROGRAM} program_icon)
  target_sources(${PROGRAM} PRIVATE ${resources})
endfunction()
