# What is installed, and the packages: `cmake --build build/release --target package` makes the Debian package, the target
# `archive` the tar.gz, the target `packages` of the Windows build the setup and the zip. All that is needed is made when the
# program is built; where a tool is missing there is no package, and the rest builds all the same.
set(PACKAGE_FOLDER ${CMAKE_BINARY_DIR}/packages)

if(WIN32)
  include(WindowsPackages)
elseif(DRUKKEURING_QT AND NOT DRUKKEURING_SANITIZE)
  include(LinuxInstall)
  include(LinuxArchive)
  include(DebianPackage)
endif()
