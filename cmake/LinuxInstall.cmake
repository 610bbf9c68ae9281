# Where the programs and what the desktop knows of them go on Linux, by the folders of GNUInstallDirs. The programs find their data
# from their own folder, so that the whole may be moved. Three components: `program`, what a package of Debian has
# besides (`debian`), and fonts for a system that has no package of them (`fonts`).
include(GNUInstallDirs)

find_program(RSVG_CONVERT rsvg-convert)
find_program(GZIP gzip)
if(NOT RSVG_CONVERT OR NOT GZIP OR NOT TARGET handbook)
  message(STATUS "No rsvg-convert, no gzip or no handbook: nothing to install or to package")
  return()
endif()

# Each has a manual in English and one in Dutch: packaging/linux/NAME.1.in and NAME.nl.1.in.
set(INSTALLED_PROGRAMS drukkeuring drukkeuring-voorcontrole)

set(LINUX_PACKAGING ${CMAKE_SOURCE_DIR}/packaging/linux)
set(DEBIAN_PACKAGING ${CMAKE_SOURCE_DIR}/packaging/debian)
set(MADE ${CMAKE_BINARY_DIR}/packaging)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The last release's date stands in the changelog, with the product's address.
file(STRINGS ${DEBIAN_PACKAGING}/changelog CHANGES REGEX "^ -- |^drukkeuring ")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${DEBIAN_PACKAGING}/changelog)
list(GET CHANGES 0 FIRST_CHANGE)
list(GET CHANGES 1 SIGNATURE)
if(NOT FIRST_CHANGE MATCHES "^drukkeuring \\(${PROJECT_VERSION}\\)")
  message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${PROJECT_VERSION}")
endif()
if(NOT SIGNATURE MATCHES "^ -- ${PRODUCT_MAKERS} <${PRODUCT_ADDRESS}>  ")
  message(FATAL_ERROR "packaging/debian/changelog is not signed by ${PRODUCT_MAKERS} <${PRODUCT_ADDRESS}>")
endif()
string(REGEX REPLACE ".*> +" "" SIGNED "${SIGNATURE}")
execute_process(COMMAND date --utc --date=${SIGNED} +%F OUTPUT_VARIABLE PACKAGE_DATE
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

# gzip without name and time: the same source makes the same package.
function(add_compressed source target)
  add_custom_command(OUTPUT ${target} COMMAND sh -c "\"$1\" -9nc \"$2\" > \"$3\"" -- ${GZIP} ${source} ${target}
                     DEPENDS ${source} VERBATIM)
  set(MADE_FILES ${MADE_FILES} ${target} PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY ${MADE}/man ${MADE}/man/nl ${MADE}/icons)
foreach(program IN LISTS INSTALLED_PROGRAMS)
  install(TARGETS ${program})
  foreach(language "" nl)
    string(JOIN . manual ${program} ${language} 1)
    cmake_path(SET folder NORMALIZE ${MADE}/man/${language})
    configure_file(${LINUX_PACKAGING}/${manual}.in ${folder}/${program}.1 @ONLY)
    add_compressed(${folder}/${program}.1 ${folder}/${program}.1.gz)
    install(FILES ${folder}/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/${language}/man1)
  endforeach()
endforeach()

# The handbook, and what opens it without the program. It has the program's manual.
configure_file(${LINUX_PACKAGING}/drukkeuring-handleiding.in ${MADE}/drukkeuring-handleiding @ONLY)
install(PROGRAMS ${MADE}/drukkeuring-handleiding TYPE BIN)
install(DIRECTORY ${HANDBOOK_FOLDER} DESTINATION ${CMAKE_INSTALL_DOCDIR})
file(CREATE_LINK drukkeuring.1.gz ${MADE}/drukkeuring-handleiding.1.gz SYMBOLIC)
foreach(language "" nl)
  install(FILES ${MADE}/drukkeuring-handleiding.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/${language}/man1)
endforeach()

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
install(FILES ${PROGRAM_ICON} DESTINATION ${ICONS}/scalable/apps RENAME drukkeuring.svg)

configure_file(${LINUX_PACKAGING}/nl.ondor.drukkeuring.metainfo.xml.in ${MADE}/nl.ondor.drukkeuring.metainfo.xml @ONLY)
install(FILES ${LINUX_PACKAGING}/drukkeuring.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${MADE}/nl.ondor.drukkeuring.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_SOURCE_DIR}/examples/tarvik.reg DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
configure_file(${DEBIAN_PACKAGING}/copyright.in ${MADE}/copyright @ONLY)
install(FILES ${MADE}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# As Debian's policy wants it.
add_compressed(${DEBIAN_PACKAGING}/changelog ${MADE}/changelog.gz)
install(FILES ${MADE}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES ${DEBIAN_PACKAGING}/drukkeuring.doc-base DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base
        RENAME drukkeuring COMPONENT debian EXCLUDE_FROM_ALL)

# The fonts of the forms, as their packages have them, with what these say of them.
find_file(TAHOMA tahoma.ttf PATHS /usr/share/wine/fonts NO_DEFAULT_PATH)
find_file(OCR_B OCRB.otf PATHS /usr/share/fonts/opentype/ocr-b NO_DEFAULT_PATH)
if(TAHOMA AND OCR_B)
  cmake_path(REPLACE_FILENAME TAHOMA tahomabd.ttf OUTPUT_VARIABLE TAHOMA_BOLD)
  install(FILES ${TAHOMA} ${TAHOMA_BOLD} ${OCR_B} DESTINATION ${CMAKE_INSTALL_DATADIR}/drukkeuring/fonts
          COMPONENT fonts EXCLUDE_FROM_ALL)
  foreach(package fonts-wine fonts-ocr-b)
    install(FILES /usr/share/doc/${package}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/drukkeuring/fonts
            RENAME ${package}.copyright COMPONENT fonts EXCLUDE_FROM_ALL)
  endforeach()
endif()

add_custom_target(installed_files ALL DEPENDS ${MADE_FILES})
add_dependencies(installed_files handbook)
