# Sanitizer instrumentation of this project's own targets. Flags travel through the INTERFACE
# target cs_sanitizers, which the library passes on to everything in this build that links it
# (tests, examples, tools, fuzz targets); Qt and the system libraries stay as they are.
#
#   -DCS_SANITIZE=address,undefined     AddressSanitizer (with LeakSanitizer) and UBSan
#   -DCS_SANITIZE=thread                ThreadSanitizer
#
# With CS_BUILD_FUZZERS the library also gets libFuzzer's coverage instrumentation.

set(CS_SANITIZE "" CACHE STRING
    "Sanitizers for the project's targets, comma separated: address, undefined, leak, thread")

add_library(cs_sanitizers INTERFACE)

string(REPLACE "," ";" cs_sanitize_list "${CS_SANITIZE}")
foreach(sanitizer IN LISTS cs_sanitize_list)
    if(NOT sanitizer MATCHES "^(address|undefined|leak|thread)$")
        message(FATAL_ERROR "CS_SANITIZE: unknown sanitizer '${sanitizer}'")
    endif()
endforeach()
if("thread" IN_LIST cs_sanitize_list AND
   ("address" IN_LIST cs_sanitize_list OR "leak" IN_LIST cs_sanitize_list))
    message(FATAL_ERROR "CS_SANITIZE: thread cannot be combined with address or leak")
endif()
if(CS_BUILD_FUZZERS AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "CS_BUILD_FUZZERS needs clang (libFuzzer), e.g. CXX=clang++-14")
endif()

set(cs_sanitize_flags "")
if(cs_sanitize_list)
    list(JOIN cs_sanitize_list "," cs_sanitize_joined)
    list(APPEND cs_sanitize_flags -fsanitize=${cs_sanitize_joined} -fno-omit-frame-pointer)
endif()
if(CS_BUILD_FUZZERS)
    list(APPEND cs_sanitize_flags -fsanitize=fuzzer-no-link)
endif()

if(cs_sanitize_flags)
    message(STATUS "Sanitizer flags of the project's targets: ${cs_sanitize_flags}")
    target_compile_options(cs_sanitizers INTERFACE ${cs_sanitize_flags})
    target_link_options(cs_sanitizers INTERFACE ${cs_sanitize_flags})
    # Only inside this build tree: an installed library is never an instrumented one.
    target_link_libraries(CommandSystem PUBLIC $<BUILD_INTERFACE:cs_sanitizers>)
endif()
