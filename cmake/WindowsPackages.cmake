# The setup and the zip of the Windows program: the target `packages`.
set(SETUP ${PACKAGE_FOLDER}/drukkeuring-setup-${PROJECT_VERSION}.exe)
set(SETUP_PICTURE ${CMAKE_BINARY_DIR}/packaging/setup.bmp)
set(PROGRAM_ZIP ${PACKAGE_FOLDER}/drukkeuring-${PROJECT_VERSION}-windows.zip)
set(WINDOWS_PACKAGING ${CMAKE_SOURCE_DIR}/packaging/windows)
set(BITMAP_MAKER ${CMAKE_SOURCE_DIR}/tools/pictures/make_bitmap.py)

find_program(MAKENSIS makensis)
if(NOT MAKENSIS)
  message(STATUS "No setup: makensis is not installed")
  return()
endif()

file(MAKE_DIRECTORY ${PACKAGE_FOLDER} ${CMAKE_BINARY_DIR}/packaging)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
# Twice as large as it is shown, for dense screens.
add_custom_command(OUTPUT ${SETUP_PICTURE}
  COMMAND ${Python3_EXECUTABLE} ${BITMAP_MAKER} ${WINDOWS_PACKAGING}/setup.svg ${SETUP_PICTURE} 328 628
  DEPENDS ${BITMAP_MAKER} ${WINDOWS_PACKAGING}/setup.svg VERBATIM)
add_custom_command(OUTPUT ${SETUP}
  COMMAND ${MAKENSIS} -V2 -WX -INPUTCHARSET UTF8 -DVERSION=${PROJECT_VERSION} -DPROGRAM=$<TARGET_FILE:drukkeuring>
          -DICON=${CMAKE_BINARY_DIR}/src/program/drukkeuring.ico -DPICTURE=${SETUP_PICTURE} -DOUTPUT=${SETUP}
          ${WINDOWS_PACKAGING}/drukkeuring.nsi
  DEPENDS drukkeuring ${SETUP_PICTURE} ${WINDOWS_PACKAGING}/drukkeuring.nsi VERBATIM)
# The one file that the program is, for who may install nothing.
add_custom_command(OUTPUT ${PROGRAM_ZIP}
  COMMAND ${CMAKE_COMMAND} -E tar cf ${PROGRAM_ZIP} --format=zip drukkeuring.exe
  WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} DEPENDS drukkeuring VERBATIM)
add_custom_target(packages ALL DEPENDS ${SETUP} ${PROGRAM_ZIP})
