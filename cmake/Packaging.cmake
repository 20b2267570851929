# What an installation holds besides the library and cstool: the XML schemas for editors, a
# pkg-config file beside the CMake package, the licence and change log; and the Debian package
# made from the same install rules (cpack -G DEB).

set(CS_SCHEMA_INSTALL_DIR ${CMAKE_INSTALL_DATADIR}/CommandSystem/schemas)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/schemas/ DESTINATION ${CS_SCHEMA_INSTALL_DIR}
        FILES_MATCHING PATTERN "*.xsd")
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
              ${PROJECT_SOURCE_DIR}/README.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The prefix is found from the file's own place, so that a moved installation still works.
set(cs_pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(IS_ABSOLUTE "${cs_pkgconfig_dir}")
    set(CS_PC_PREFIX ${CMAKE_INSTALL_PREFIX})
else()
    file(RELATIVE_PATH cs_pc_up /prefix/${cs_pkgconfig_dir} /prefix)
    set(CS_PC_PREFIX "\${pcfiledir}/${cs_pc_up}")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/CommandSystem.pc.in
               ${PROJECT_BINARY_DIR}/CommandSystem.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/CommandSystem.pc DESTINATION ${cs_pkgconfig_dir})

set(CS_PACKAGE_CONTACT "CommandSystem developers" CACHE STRING
    "Maintainer named in the Debian package")
set(CPACK_PACKAGE_NAME commandsystem)
if(CS_QT_MAJOR EQUAL 5)
    set(CPACK_PACKAGE_NAME commandsystem-qt5)
endif()
set(CPACK_PACKAGE_VENDOR "CommandSystem")
set(CPACK_PACKAGE_CONTACT ${CS_PACKAGE_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Building against the package needs Qt's and Boost's headers as well as their libraries.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libboost-dev")
if(CS_QT_MAJOR EQUAL 5)
    string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", qtbase5-dev")
else()
    string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", qt6-base-dev")
endif()
include(CPack)
