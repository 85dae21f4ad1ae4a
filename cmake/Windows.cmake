# What only a build for Windows needs; included by the project's CMakeLists.txt there.

# The wide calls throughout; times of 64 bits, and the functions for them that keep no state.
add_compile_definitions(UNICODE _UNICODE _WIN32_WINNT=0x0601 WINVER=0x0601 NOMINMAX
                        WIN32_LEAN_AND_MEAN STRICT __MINGW_USE_VC2005_COMPAT _POSIX_THREAD_SAFE_FUNCTIONS=200112L
                        EDQUOT=10069)  # the number that newer headers give a full quota

# Libraries that are headers alone serve every compiler. The compiler must see them without the rest
# of the machine's headers, so that they get a folder of links to them.
set(headers ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(library CLI rapidjson toml++)
  if(NOT EXISTS /usr/include/${library})
    message(FATAL_ERROR "/usr/include/${library} is missing; ./windows installs it")
  endif()
  file(CREATE_LINK /usr/include/${library} ${headers}/${library} SYMBOLIC)
endforeach()
include_directories(SYSTEM ${headers})

# Tests that can't be of Windows, for what they need of another system: a program that goes on as two
# and is killed in one of them (fork), limits of a process, owners, modes and pipes with names.
set(QUILLON_TESTS_OF_OTHER_SYSTEMS
    errors/ErrorRuntime_test.cpp     # fork: two programs on one log
    platform/AtomicFile_test.cpp     # limits, owners, modes, hard and symbolic links, pipes
    platform/RegistryStore_test.cpp  # fork: two programs on one file
    journal/WritingRun_test.cpp      # fork: a run that is killed
    host/SaveKill_test.cpp           # fork: a save that is killed at every call
    shell/MStartUp_test.cpp          # fork: a crash and what is logged of it
    paper/Printers_test.cpp          # queues and documents of CUPS, modes, pipes
    printing/Reports_test.cpp)       # modes, the PDF library
