# Builds the program of docs/library.md against the installed library and runs it: its output has to be the page's.
# cmake -D SOURCE=... -D BUILD=... -D CONFIG=... -D COMPILER=... -D FLAGS=... -D GENERATOR=... -P PageProgram.cmake
set(work ${BUILD}/library-page)
file(REMOVE_RECURSE ${work})
file(READ ${SOURCE}/docs/library.md page)

# Sets `variable` to the block of the page that is marked as being in `language`.
function(take_block language variable)
  string(REGEX MATCH "\n```${language}\n(([^`]|`[^`])*)```\n" block "${page}")
  set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()
take_block(cpp program)
take_block(cmake lists)
take_block(text expected)
file(WRITE ${work}/strongest-lines.cpp "${program}")
file(WRITE ${work}/CMakeLists.txt "${lists}")

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
endfunction()
run(${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --component dev --prefix ${work}/installed)
run(${CMAKE_COMMAND} -S ${work} -B ${work}/build -G ${GENERATOR} -D CMAKE_BUILD_TYPE=${CONFIG}
  -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS} -D CMAKE_PREFIX_PATH=${work}/installed
  -D CMAKE_RUNTIME_OUTPUT_DIRECTORY=${work})
run(${CMAKE_COMMAND} --build ${work}/build --config ${CONFIG})
execute_process(COMMAND ${work}/strongest-lines samples/UREA.INS samples/UREA.HKL WORKING_DIRECTORY ${SOURCE}
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "docs/library.md shows\n${expected}but the program prints\n${output}")
endif()
