# Builds the Debian package with CPack and holds its contents against what "cmake --install"
# put into the test prefix: the same files, installed under /usr, with the dependencies that
# dpkg-shlibdeps found.
#   cmake -DCONFIG=.../CPackConfig.cmake -DOUTPUT=... -DPREFIX=... -P DebianPackage.cmake
include(${CMAKE_CURRENT_LIST_DIR}/RunChecked.cmake)

file(REMOVE_RECURSE ${OUTPUT})
run_checked("cpack" ${CMAKE_CPACK_COMMAND} -G DEB --config ${CONFIG} -B ${OUTPUT})
file(GLOB packages ${OUTPUT}/*.deb)
list(LENGTH packages count)
if(NOT count EQUAL 1)
    message(FATAL_ERROR "Expected one .deb in ${OUTPUT}, found: ${packages}")
endif()

run_checked("dpkg-deb --contents" dpkg-deb --contents ${packages})
string(REGEX MATCHALL "\\./usr/[^\n]*[^/\n]\n" entries "${output}")
set(packaged "")
foreach(entry IN LISTS entries)
    string(REGEX REPLACE "^\\./usr/| -> .*$|\n$" "" path "${entry}")
    list(APPEND packaged ${path})
endforeach()
list(SORT packaged)

file(GLOB_RECURSE installed LIST_DIRECTORIES false RELATIVE ${PREFIX} ${PREFIX}/*)
list(SORT installed)
if(NOT packaged STREQUAL installed)
    message(FATAL_ERROR "The package's files differ from the installed ones.\n"
                        "packaged:  ${packaged}\ninstalled: ${installed}")
endif()
list(LENGTH packaged files)

run_checked("dpkg-deb --field" dpkg-deb --field ${packages} Package Version Depends)
if(NOT output MATCHES "Depends:[^\n]*libqt")
    message(FATAL_ERROR "The package does not depend on Qt's libraries:\n${output}")
endif()
message(STATUS "${packages}: ${files} files, as installed\n${output}")
