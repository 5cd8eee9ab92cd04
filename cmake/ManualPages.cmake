# Manual pages, made by help2man of what the programs say of themselves, and their completion in Bash.
include(GNUInstallDirs)
find_program(HELP2MAN help2man)
find_program(GZIP gzip)

# talven_manual(PROGRAM SUMMARY [OPTION that prints the whole help])
function(talven_manual program summary)
  if(NOT TARGET ${program})
    return()
  endif()
  set(help --help)
  if(ARGC GREATER 2)
    set(help ${ARGV2})
  endif()
  set(page ${CMAKE_BINARY_DIR}/man/${program}.1)
  add_custom_command(OUTPUT ${page}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
      ${HELP2MAN} --no-info --name=${summary} --help-option=${help} --output=${page} $<TARGET_FILE:${program}>
    COMMAND ${GZIP} -9nf ${page}
    DEPENDS ${program} VERBATIM)
  add_custom_target(${program}-manual ALL DEPENDS ${page}.gz)
  install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endfunction()

if(NOT UNIX)
  return()
endif()
install(FILES packaging/talven-completion.bash
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME talven)
foreach(program talven-console talven-run talven-fcalc talven-view)
  install(CODE "file(CREATE_LINK talven
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/bash-completion/completions/${program}\" SYMBOLIC)")
endforeach()
if(NOT HELP2MAN OR NOT GZIP OR CMAKE_CROSSCOMPILING OR TALVEN_SANITIZE OR TALVEN_FUZZ)
  message(STATUS "Manual pages are left out: help2man is not installed, or the programs don't run here")
  return()
endif()
talven_manual(talven-console "X-ray powder diffraction utility on a terminal")
talven_manual(talven-run "powder diffraction work on many files, without questions" --help-all)
talven_manual(talven-fcalc "calculated F squared from a structure model")
talven_manual(talven-view "X-ray powder patterns in a window and as pictures")
talven_manual(talven "X-ray powder diffraction utility in a window")
