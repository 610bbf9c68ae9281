# The program with its handbook and the fonts of the forms as a tar.gz, which runs from any folder of any distribution that has the
# libraries: the target `archive`.
find_program(TAR tar)
if(NOT TARGET installed_files OR NOT TAHOMA OR NOT OCR_B OR NOT TAR)
  message(STATUS "No archive: nothing is to be installed, or fonts-wine or fonts-ocr-b is missing")
  return()
endif()

configure_file(${LINUX_PACKAGING}/make_archive.cmake.in ${MADE}/make_archive.cmake @ONLY)
add_custom_target(archive COMMAND ${CMAKE_COMMAND} -DFOLDER=${PACKAGE_FOLDER} -P ${MADE}/make_archive.cmake
                  DEPENDS ${INSTALLED_PROGRAMS} installed_files VERBATIM)
