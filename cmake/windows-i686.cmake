# Builds programs for 32-bit Windows (7 and later) with Debian's cross compiler, on Debian.
# What isn't in Debian for that compiler lies in a cache folder, which ./windows fills:
#   wx/     wxWidgets as a static library      zstd/  the archive      gtest/  GoogleTest
# QUILLON_WINDOWS_CACHE in the environment names another folder.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(prefix i686-w64-mingw32)
set(CMAKE_C_COMPILER ${prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${prefix}-g++-posix)
set(CMAKE_RC_COMPILER ${prefix}-windres)

if(DEFINED ENV{QUILLON_WINDOWS_CACHE})
  set(QUILLON_WINDOWS_CACHE $ENV{QUILLON_WINDOWS_CACHE})
else()
  set(QUILLON_WINDOWS_CACHE $ENV{HOME}/.cache/tarvane-quillon/windows)
endif()
set(CMAKE_FIND_ROOT_PATH /usr/${prefix} ${QUILLON_WINDOWS_CACHE}/wx ${QUILLON_WINDOWS_CACHE}/zstd
                         ${QUILLON_WINDOWS_CACHE}/gtest)
# The library's own program tells how to link it; that of the machine is for another system.
set(wxWidgets_CONFIG_EXECUTABLE ${QUILLON_WINDOWS_CACHE}/wx/bin/wx-config CACHE FILEPATH "")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The numbers of the other programs to the last digit: no floating-point unit with longer numbers. The
# system calls back with a stack that isn't aligned for the instructions that do it instead.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_C_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
# A program is one file: the compiler's own libraries are in it.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()
