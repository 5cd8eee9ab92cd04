# Builds for 64-bit Windows on Linux, with Debian's mingw-w64; what is built runs there under Wine.
#   cmake --toolchain cmake/mingw-w64.cmake -S . -B build/windows -G Ninja -DTALVEN_TESTS=OFF
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
# The programs bring the run-time library of the compiler with them.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
# Libraries that are headers alone serve for Windows too, in a folder of their own: beside the others of this system they
# would hide those of Windows.
get_property(is_trial GLOBAL PROPERTY IN_TRY_COMPILE)
if(NOT is_trial)
  foreach(folder gemmi tao CLI)
    if(EXISTS /usr/include/${folder})
      file(COPY /usr/include/${folder} DESTINATION ${CMAKE_BINARY_DIR}/headers/include)
    endif()
  endforeach()
  list(APPEND CMAKE_FIND_ROOT_PATH ${CMAKE_BINARY_DIR}/headers)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
find_program(CMAKE_CROSSCOMPILING_EMULATOR wine)
