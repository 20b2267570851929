# Moves an installed prefix elsewhere and uses it there as an author or a host would: cstool
# must find the library beside itself, the schemas must be in share/, and a program built
# with the pkg-config file alone must link and run.
#   cmake -DPREFIX=... -DMOVED=... -DLIBDIR=... -DEXAMPLES=... -DCONSUMER=... -DCXX=... -P RelocatedInstall.cmake
include(${CMAKE_CURRENT_LIST_DIR}/RunChecked.cmake)

file(REMOVE_RECURSE ${MOVED})
file(COPY ${PREFIX}/ DESTINATION ${MOVED})

run_checked("ldd of the moved cstool" ldd ${MOVED}/bin/cstool)
string(REGEX MATCH "libCommandSystem[^ ]* => ([^ ]+)" found "${output}")
get_filename_component(loaded "${CMAKE_MATCH_1}" REALPATH)
get_filename_component(beside "${MOVED}/${LIBDIR}" REALPATH)
get_filename_component(loaded_from "${loaded}" DIRECTORY)
if(NOT loaded_from STREQUAL beside)
    message(FATAL_ERROR "The moved cstool does not load the library beside it:\n${output}")
endif()
set(ENV{QT_QPA_PLATFORM} offscreen)
run_checked("the moved cstool" ${MOVED}/bin/cstool validate --werror ${EXAMPLES}/templates ${EXAMPLES}/ui)
message(STATUS "moved cstool: ${output}")

foreach(schema tcmd xcui map)
    if(NOT EXISTS ${MOVED}/share/CommandSystem/schemas/${schema}.xsd)
        message(FATAL_ERROR "share/CommandSystem/schemas/${schema}.xsd is not installed")
    endif()
endforeach()

set(ENV{PKG_CONFIG_PATH} ${MOVED}/${LIBDIR}/pkgconfig)
run_checked("pkg-config" pkg-config --cflags --libs CommandSystem)
string(STRIP "${output}" flags)
string(FIND "${flags}" "-I${MOVED}/" into_moved)
if(into_moved LESS 0)
    message(FATAL_ERROR "pkg-config does not point into the moved prefix: ${flags}")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
set(program ${MOVED}/pkgconfig-consumer)
run_checked("building with pkg-config" ${CXX} -std=c++17 -fPIC ${CONSUMER} -o ${program} ${flags}
    -Wl,-rpath,${MOVED}/${LIBDIR})
run_checked("the pkg-config consumer" ${program})
if(NOT output MATCHES "ran line from the installed package")
    message(FATAL_ERROR "The pkg-config consumer did not run as expected: ${output}")
endif()
