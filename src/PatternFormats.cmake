# Readers of measured patterns. What needs a library of its own is a room of its own, left out where that is missing.
# Gives pattern_libraries and pattern_definitions for the registry.
talven_library(talven_formats patterns/formats LINK talven_crystal talven_textio)
set(pattern_libraries)
set(pattern_definitions)

# pattern_room(FOLDER LIBRARY kinds LINK targets...): patterns/formats/FOLDER, which alone sees that library.
function(pattern_room folder library)
  cmake_parse_arguments(ARG "" "" "LINK;OUTSIDE" ${ARGN})
  talven_library(talven_formats_${folder} patterns/formats/${folder} LINK talven_formats ${ARG_LINK})
  target_link_libraries(talven_formats_${folder} PUBLIC ${ARG_OUTSIDE})
  set(pattern_libraries ${pattern_libraries} talven_formats_${folder} PARENT_SCOPE)
  set(pattern_definitions ${pattern_definitions} TALVEN_WITH_${library} PARENT_SCOPE)
endfunction()

find_package(pugixml QUIET)
find_path(LIBZIP_INCLUDE zip.h)
find_library(LIBZIP_LIBRARY zip)
find_package(gemmi QUIET)
find_path(GEMMI_INCLUDE gemmi/cif.hpp)
find_path(PEGTL_INCLUDE tao/pegtl.hpp)
find_path(XYLIB_INCLUDE xylib/xylib.h)
find_library(XYLIB_LIBRARY xy)

if(pugixml_FOUND)
  pattern_room(xml PUGIXML OUTSIDE pugixml::pugixml)
else()
  message(STATUS "Without pugixml: XRDML, RASX and BRML files are not read")
endif()
if(pugixml_FOUND AND LIBZIP_INCLUDE AND LIBZIP_LIBRARY)
  pattern_room(zip LIBZIP LINK talven_formats_xml OUTSIDE ${LIBZIP_LIBRARY})
else()
  message(STATUS "Without libzip and pugixml: RASX and BRML files are not read")
endif()
if(TARGET gemmi::gemmi_cpp)
  pattern_room(cif GEMMI OUTSIDE gemmi::gemmi_cpp)
elseif(GEMMI_INCLUDE AND PEGTL_INCLUDE)
  pattern_room(cif GEMMI)  # Headers alone, up to version 0.5.
  if(CMAKE_CROSSCOMPILING)  # The compiler looks elsewhere for its headers.
    target_include_directories(talven_formats_cif SYSTEM PRIVATE ${GEMMI_INCLUDE} ${PEGTL_INCLUDE})
  endif()
else()
  message(STATUS "Without gemmi: powder CIF files are not read, except by option 2")
endif()
# gemmi's list of blocks holds a type that is not complete yet, which C++20 lets only some compilers pass.
set_source_files_properties(patterns/formats/cif/ParseCif.cpp PROPERTIES
  COMPILE_OPTIONS $<$<NOT:$<CXX_COMPILER_ID:MSVC>>:-std=c++17> SKIP_PRECOMPILE_HEADERS ON)
if(XYLIB_INCLUDE AND XYLIB_LIBRARY)
  pattern_room(xylib XYLIB OUTSIDE ${XYLIB_LIBRARY})
else()
  message(STATUS "Without xylib: RAW files before version 4 and kinds of other instruments are not read")
endif()
