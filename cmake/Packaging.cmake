# What is installed beside the programs, and the Debian packages: `cpack -G DEB` in a build tree.
include(GNUInstallDirs)

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/talven RENAME copyright)
# The pages of the manual, which F1 opens in the window.
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/talven FILES_MATCHING PATTERN "*.md" PATTERN "*.png")
if(TARGET talven AND UNIX AND NOT APPLE)
  install(FILES packaging/talven.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/talven-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME talven.xml)
  if(TARGET talven-view)
    install(FILES packaging/talven-view.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  endif()
  install(FILES packaging/talven.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

set(CPACK_PACKAGE_NAME talven)
set(CPACK_PACKAGE_CONTACT "The Talven developers <talven@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "X-ray powder diffraction utility")
set(CPACK_PACKAGE_DESCRIPTION
    "Simulates powder patterns from SHELX files, converts between pattern formats\nand compares peak lists; in a window (talven) or on a terminal (talven-console).")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified dev)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME talven)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_SECTION science)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libtalven-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION "Library and headers of Talven, for programs of one's own.")
# The libraries that the programs load, as dpkg finds them; with them comes Qt's connection to X11.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_RECOMMENDS "fonts-dejavu-core | fonts-liberation")
include(CPack)
