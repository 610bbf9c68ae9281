# The Debian package of what LinuxInstall.cmake installs.
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(NOT TARGET installed_files OR NOT DPKG_SHLIBDEPS)
  message(STATUS "No Debian package: dpkg-dev is not installed, or nothing is to be installed")
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME drukkeuring)
set(CPACK_PACKAGE_VENDOR ${PRODUCT_VENDOR})
set(CPACK_PACKAGE_CONTACT "${PRODUCT_MAKERS} <${PRODUCT_ADDRESS}>")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${PRODUCT_HOMEPAGE})
set(CPACK_PACKAGE_DIRECTORY ${PACKAGE_FOLDER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
# One package of two components.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL program debian)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "wizard that prints test batches of IBAN acceptgiro payment slips")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Organisations that send IBAN acceptgiro payment slips must first have a
test batch judged by a test institute. This program prints that batch on
their own printer and paper: the test forms, a list of the names on them,
and a report of the calibration. It works with the settings of Tarvik.
.
The program's texts are Dutch.")

# The libraries are found in the program; beside them it takes the fonts of the forms (Tahoma is Wine's), one for its
# windows, and the toolkit's Dutch texts. Recommended: printers, windows that are native on Wayland, the desktop's own window that asks for
# a file, and what opens the handbook.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-wine, fonts-ocr-b, fonts-dejavu-core, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "cups, qt6-gtk-platformtheme, qt6-wayland, qt6-xdgdesktopportal-platformtheme, xdg-utils")

include(CPack)
