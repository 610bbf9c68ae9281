# The Debian package of what LinuxInstall.cmake installs.
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(NOT TARGET installed_files OR NOT DPKG_SHLIBDEPS)
  message(STATUS "No Debian package: dpkg-dev is not installed, or nothing is to be installed")
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME drukkeuring)
set(CPACK_PACKAGE_VENDOR Ondor)
set(CPACK_PACKAGE_CONTACT "The makers of Drukkeuring <drukkeuring@example.org>")
set(CPACK_PACKAGE_DIRECTORY ${PACKAGE_FOLDER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
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
# windows, and the toolkit's Dutch texts. The windows are X11's, also on Wayland; qt6-wayland makes them native there.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-wine, fonts-ocr-b, fonts-dejavu-core, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups, qt6-wayland")

include(CPack)
