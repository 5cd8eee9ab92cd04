# Compiler settings for every target, and talven_library(), which makes one library of one source folder.

add_library(talven_options INTERFACE)
if(MSVC)
  target_compile_options(talven_options INTERFACE /W4 $<$<BOOL:${TALVEN_WERROR}>:/WX> /fp:precise /utf-8)
  target_compile_definitions(talven_options INTERFACE _CRT_SECURE_NO_WARNINGS)
else()
  # No fused multiply-add: a pattern must have the same bytes whatever compiler and build type made the program.
  target_compile_options(talven_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wfloat-conversion -Wsign-conversion $<$<BOOL:${TALVEN_WERROR}>:-Werror> -ffp-contract=off
    # GCC 12 leaves out the rounding of two reals that are stored side by side, where both are used again at once.
    $<$<CXX_COMPILER_ID:GNU>:-fno-tree-slp-vectorize>)
endif()
if(TALVEN_SANITIZE OR TALVEN_FUZZ)
  target_compile_options(talven_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1
    -g1)  # Lines are what a report tells; all that a debugger wants costs a third of the time of building.
  target_link_options(talven_options INTERFACE -fsanitize=address,undefined)
endif()
if(TALVEN_FUZZ)
  target_compile_options(talven_options INTERFACE -fsanitize=fuzzer-no-link)
  target_compile_definitions(talven_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

# talven_headers(NAME [LINK targets...] HEADERS <header>...)
#
# Compiles headers once that many sources read. Each source includes what it uses all the same: the fuzz preset compiles
# without this.
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled.cpp CONTENT "")
function(talven_headers name)
  cmake_parse_arguments(ARG "" "" "LINK;HEADERS" ${ARGN})
  add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/precompiled.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} talven_options)
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()
set(talven_common_headers
  <algorithm> <charconv> <cmath> <filesystem> <functional> <memory> <optional> <span> <string> <string_view> <vector>)
set(talven_common_qt_headers <QApplication> <QBoxLayout> <QFileInfo> <QKeyEvent> <QLabel> <QLineEdit> <QPushButton>)
talven_headers(talven_standard_headers HEADERS ${talven_common_headers})

# GCC 12 no longer tells the standard library's own code from ours behind a precompiled header.
set(talven_precompiled_options
  "$<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread;-Wno-restrict>")

# talven_library(NAME FOLDER [HEADERS target] [LINK targets...])
#
# Makes the library NAME of all sources in src/FOLDER (not of its subfolders), with the standard headers compiled once,
# or those of HEADERS. Other targets see its headers as "FOLDER/Header.h" only if they link to it: each library has an
# include directory of its own in the build tree, with one forwarding header for each of its headers. So an include
# across folders that no link list allows does not compile.
function(talven_library name folder)
  cmake_parse_arguments(ARG "" "HEADERS" "LINK" ${ARGN})
  if(NOT ARG_HEADERS)
    set(ARG_HEADERS talven_standard_headers)
  endif()
  set(directory ${PROJECT_SOURCE_DIR}/src/${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${directory}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${directory}/*.h)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_windows\\.cpp$")
  endif()
  list(FILTER sources EXCLUDE REGEX "_main\\.cpp$")
  if(TALVEN_GEMMI)
    list(FILTER sources EXCLUDE REGEX "_none\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_gemmi\\.cpp$")
  endif()
  set(include_root ${CMAKE_BINARY_DIR}/include/${name})
  foreach(header IN LISTS headers)
    get_filename_component(file_name ${header} NAME)
    file(CONFIGURE OUTPUT ${include_root}/${folder}/${file_name} CONTENT "#include \"${header}\"\n" @ONLY)
  endforeach()
  add_library(${name} STATIC ${sources} ${headers})
  target_include_directories(${name} PUBLIC ${include_root})
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE talven_options)
  target_precompile_headers(${name} REUSE_FROM ${ARG_HEADERS})
  target_compile_options(${name} PRIVATE ${talven_precompiled_options})
endfunction()
