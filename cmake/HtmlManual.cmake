# The manual as HTML, which F1 opens where it is installed; the pages themselves are installed in any case.
include(GNUInstallDirs)
find_program(PANDOC pandoc)

if(NOT UNIX OR CMAKE_CROSSCOMPILING OR TALVEN_SANITIZE OR TALVEN_FUZZ)
  return()
endif()
if(NOT PANDOC)
  message(STATUS "The manual as HTML is left out: pandoc is not installed")
  return()
endif()
file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/manual/index.html
  COMMAND ${PROJECT_SOURCE_DIR}/tools/make-manual ${CMAKE_BINARY_DIR}/manual
  DEPENDS ${pages} ${PROJECT_SOURCE_DIR}/tools/make-manual VERBATIM)
add_custom_target(manual ALL DEPENDS ${CMAKE_BINARY_DIR}/manual/index.html)
install(DIRECTORY ${CMAKE_BINARY_DIR}/manual/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/talven/html)
