# The setup and the zip of the Windows programs: the target `packages`.
find_program(MAKENSIS makensis)
if(NOT MAKENSIS OR NOT TARGET handbook)
  message(STATUS "No setup: makensis is not installed, or there is no handbook")
  return()
endif()

set(INSTALLED_PROGRAMS drukkeuring drukkeuring-voorcontrole)

set(SETUP ${PACKAGE_FOLDER}/drukkeuring-setup-${PROJECT_VERSION}.exe)
set(PROGRAM_ZIP ${PACKAGE_FOLDER}/drukkeuring-${PROJECT_VERSION}-windows.zip)
set(WINDOWS_PACKAGING ${CMAKE_SOURCE_DIR}/packaging/windows)
set(MADE ${CMAKE_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${PACKAGE_FOLDER} ${MADE})

# Twice as large as it is shown, for dense screens.
set(SETUP_PICTURE ${MADE}/setup.bmp)
set(PICTURE_MAKER ${CMAKE_SOURCE_DIR}/tools/pictures/make_bitmap.py ${WINDOWS_PACKAGING}/setup.svg)
add_custom_command(OUTPUT ${SETUP_PICTURE} COMMAND ${Python3_EXECUTABLE} ${PICTURE_MAKER} ${SETUP_PICTURE} 328 628
                   DEPENDS ${PICTURE_MAKER} VERBATIM)

# What the script of the setup takes from here.
foreach(program IN LISTS INSTALLED_PROGRAMS)
  list(APPEND EXE_FILES ${program}.exe)
  string(APPEND INSTALL_LINES "  File \"${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${program}.exe\"\n")
  string(APPEND REMOVE_LINES "  Delete \"$INSTDIR\\${program}.exe\"\n")
endforeach()
configure_file(${WINDOWS_PACKAGING}/product.nsh.in ${MADE}/product.nsh @ONLY)
add_custom_command(OUTPUT ${SETUP}
  COMMAND ${MAKENSIS} -V2 -WX -INPUTCHARSET UTF8 -DPRODUCT=${MADE}/product.nsh ${WINDOWS_PACKAGING}/drukkeuring.nsi
  DEPENDS ${INSTALLED_PROGRAMS} ${HANDBOOK_FOLDER}/index.html ${PROGRAM_ICON_FILE} ${SETUP_PICTURE} ${MADE}/product.nsh
          ${WINDOWS_PACKAGING}/drukkeuring.nsi VERBATIM)
# The same without a setup, for who may install nothing.
add_custom_command(OUTPUT ${PROGRAM_ZIP}
  COMMAND ${CMAKE_COMMAND} -E tar cf ${PROGRAM_ZIP} --format=zip ${EXE_FILES} handleiding
  WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
  DEPENDS ${INSTALLED_PROGRAMS} ${HANDBOOK_FOLDER}/index.html VERBATIM)
add_custom_target(packages ALL DEPENDS ${SETUP} ${PROGRAM_ZIP})
