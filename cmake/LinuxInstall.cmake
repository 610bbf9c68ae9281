# Where the program and what the desktop knows of it go on Linux.
include(GNUInstallDirs)

find_program(RSVG_CONVERT rsvg-convert)
find_program(GZIP gzip)
if(NOT RSVG_CONVERT OR NOT GZIP)
  message(STATUS "No rsvg-convert or no gzip: nothing to install or to package")
  return()
endif()

set(LINUX_PACKAGING ${CMAKE_SOURCE_DIR}/packaging/linux)
set(DEBIAN_PACKAGING ${CMAKE_SOURCE_DIR}/packaging/debian)
set(MADE ${CMAKE_BINARY_DIR}/packaging)

# The last release's date stands in the changelog.
file(STRINGS ${DEBIAN_PACKAGING}/changelog CHANGES REGEX "^ -- |^drukkeuring ")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${DEBIAN_PACKAGING}/changelog)
list(GET CHANGES 0 FIRST_CHANGE)
list(GET CHANGES 1 SIGNATURE)
if(NOT FIRST_CHANGE MATCHES "^drukkeuring \\(${PROJECT_VERSION}\\)")
  message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${PROJECT_VERSION}")
endif()
string(REGEX REPLACE ".*> +" "" SIGNED "${SIGNATURE}")
execute_process(COMMAND date --utc --date=${SIGNED} +%F OUTPUT_VARIABLE PACKAGE_DATE
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(${LINUX_PACKAGING}/nl.ondor.drukkeuring.metainfo.xml.in ${MADE}/nl.ondor.drukkeuring.metainfo.xml @ONLY)

# gzip without name and time: the same source makes the same package.
function(add_compressed source target)
  add_custom_command(OUTPUT ${target} COMMAND sh -c "\"$1\" -9nc \"$2\" > \"$3\"" -- ${GZIP} ${source} ${target}
                     DEPENDS ${source} VERBATIM)
  set(MADE_FILES ${MADE_FILES} ${target} PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY ${MADE}/man ${MADE}/man/nl ${MADE}/icons)
add_compressed(${LINUX_PACKAGING}/drukkeuring.1 ${MADE}/man/drukkeuring.1.gz)
add_compressed(${LINUX_PACKAGING}/drukkeuring.nl.1 ${MADE}/man/nl/drukkeuring.1.gz)
add_compressed(${DEBIAN_PACKAGING}/changelog ${MADE}/changelog.gz)

# Desktops that draw no vectors take the size that they need.
set(ICON_SIZES 16 22 24 32 48 64 128 256)
set(PROGRAM_ICON ${CMAKE_SOURCE_DIR}/resources/pictures/program.svg)
set(ICONS ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size IN LISTS ICON_SIZES)
  set(icon ${MADE}/icons/drukkeuring-${size}.png)
  add_custom_command(OUTPUT ${icon} COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${icon} ${PROGRAM_ICON}
                     DEPENDS ${PROGRAM_ICON} VERBATIM)
  list(APPEND MADE_FILES ${icon})
  install(FILES ${icon} DESTINATION ${ICONS}/${size}x${size}/apps RENAME drukkeuring.png)
endforeach()
add_custom_target(installed_files ALL DEPENDS ${MADE_FILES})

install(TARGETS drukkeuring)
install(FILES ${PROGRAM_ICON} DESTINATION ${ICONS}/scalable/apps RENAME drukkeuring.svg)
install(FILES ${LINUX_PACKAGING}/drukkeuring.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${MADE}/nl.ondor.drukkeuring.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${MADE}/man/drukkeuring.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${MADE}/man/nl/drukkeuring.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/nl/man1)
install(FILES ${MADE}/changelog.gz ${DEBIAN_PACKAGING}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/drukkeuring)
install(FILES ${CMAKE_SOURCE_DIR}/examples/tarvik.reg DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/drukkeuring/examples)
