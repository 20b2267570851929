# The API reference: Doxygen over the public headers and the guides in docs/. The "docs" target
# exists when Doxygen is found; every warning, such as an undocumented public class, member or
# parameter, fails it.
find_package(Doxygen)
if(NOT DOXYGEN_FOUND)
    message(STATUS "Doxygen not found: the docs target is not built")
    return()
endif()

set(DOXYGEN_PROJECT_NAME CommandSystem)
set(DOXYGEN_PROJECT_NUMBER ${PROJECT_VERSION})
set(DOXYGEN_PROJECT_BRIEF ${PROJECT_DESCRIPTION})
set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
set(DOXYGEN_WARN_IF_UNDOCUMENTED YES)
set(DOXYGEN_WARN_IF_DOC_ERROR YES)
set(DOXYGEN_WARN_AS_ERROR YES)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_EXTRACT_ALL NO)
set(DOXYGEN_EXTRACT_PRIVATE NO)
set(DOXYGEN_HIDE_UNDOC_CLASSES NO)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_FULL_PATH_NAMES YES)
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR})
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR}/include)
set(DOXYGEN_GENERATE_HTML YES)
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_GENERATE_TREEVIEW YES)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${PROJECT_SOURCE_DIR}/docs/index.md)
# The namespace macros and the export macro as the compiler sees them.
set(DOXYGEN_ENABLE_PREPROCESSING YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED
    "CS_BEGIN_NAMESPACE=namespace Talvir { namespace Vexa { namespace Cs {"
    "CS_END_NAMESPACE=} } }"
    "COMMANDSYSTEM_EXPORT=")
set(DOXYGEN_EXCLUDE_SYMBOLS "QT_*")

file(GLOB cs_guides CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
doxygen_add_docs(docs ${PROJECT_SOURCE_DIR}/include/CommandSystem ${cs_guides}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "API reference in ${DOXYGEN_OUTPUT_DIRECTORY}/html")
