# Targets of the project: quillon_options (warnings, sanitizers) and quillon_layer(), which makes
# the static library of one folder with an include root of its own.

add_library(quillon_options INTERFACE)
target_compile_options(quillon_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # False alarms of gcc 12 in its own string and optional headers once it inlines (-O2, -O3).
  target_compile_options(quillon_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
if(QUILLON_SANITIZE)
  target_compile_options(quillon_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quillon_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUILLON_FUZZ)
  target_compile_options(quillon_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# quillon_sources(<variable> [<folder>]): the sources of a folder for the system that the build is for.
# X_win.cpp and X_posix.cpp are twins behind one header; what they share is in X.cpp, if anything.
function(quillon_sources variable)
  file(GLOB sources CONFIGURE_DEPENDS ${ARGN}*.cpp)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_win\\.cpp$")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# quillon_layer(<name> [LINKS <layer>...] [PRIVATE <library>...])
# Sources are those of the calling folder. LINKS names the layers whose headers it may include.
function(quillon_layer name)
  cmake_parse_arguments(ARG "" "" "LINKS;PRIVATE" ${ARGN})
  quillon_sources(sources)
  file(GLOB headers CONFIGURE_DEPENDS *.h)
  if(sources)
    add_library(${name} STATIC ${sources} ${headers})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE quillon_options ${ARG_PRIVATE})
  else()
    add_library(${name} INTERFACE ${headers})
    target_include_directories(${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE ${ARG_LINKS})
  endif()
endfunction()
