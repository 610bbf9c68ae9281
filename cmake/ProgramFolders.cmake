# Where a program finds what belongs to it, from the folder that it stands in itself: so the whole may stand anywhere.
include(GNUInstallDirs)

if(WIN32)
  set(HANDBOOK_FROM_PROGRAM handleiding)
else()
  file(RELATIVE_PATH FONTS_FROM_PROGRAM ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/drukkeuring/fonts)
  file(RELATIVE_PATH HANDBOOK_FROM_PROGRAM ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DOCDIR}/handleiding)
endif()
