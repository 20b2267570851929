# Tests over the example catalogue in examples/: the schemas accept every file, cstool validate
# passes on all templates, UI files and maps without a warning, cstool map --check on every
# template directory, cstool ui resolves every icon, and cstool keys finds no clash between
# shortcuts, commands, aliases and options.

file(GLOB_RECURSE cs_example_templates CONFIGURE_DEPENDS ${CS_EXAMPLES}/templates/*.tcmd)
file(GLOB_RECURSE cs_example_ui CONFIGURE_DEPENDS ${CS_EXAMPLES}/ui/*.xcui)
file(GLOB_RECURSE cs_example_maps CONFIGURE_DEPENDS ${CS_EXAMPLES}/templates/*.map)
file(GLOB_RECURSE cs_example_icons CONFIGURE_DEPENDS ${CS_EXAMPLES}/*.png)
file(GLOB_RECURSE cs_example_keymaps CONFIGURE_DEPENDS ${CS_EXAMPLES}/ui/*.keymap)
file(GLOB cs_example_aliases CONFIGURE_DEPENDS ${CS_EXAMPLES}/*.aliases)

# cs_directories_of(<out> <files...>): the distinct directories that hold the files.
function(cs_directories_of out)
    set(directories "")
    foreach(file IN LISTS ARGN)
        get_filename_component(directory ${file} DIRECTORY)
        list(APPEND directories ${directory})
    endforeach()
    list(REMOVE_DUPLICATES directories)
    set(${out} ${directories} PARENT_SCOPE)
endfunction()

cs_directories_of(cs_template_dirs ${cs_example_templates})
cs_directories_of(cs_icon_dirs ${cs_example_icons})
cs_directories_of(cs_ui_dirs ${cs_example_ui})
set(cs_icon_options "")
foreach(directory IN LISTS cs_icon_dirs)
    list(APPEND cs_icon_options --icons ${directory})
endforeach()

if(CS_XMLLINT)
    foreach(file IN LISTS cs_example_templates cs_example_ui cs_example_maps cs_example_keymaps)
        get_filename_component(ext ${file} LAST_EXT)
        string(SUBSTRING ${ext} 1 -1 ext)
        file(RELATIVE_PATH name ${CS_EXAMPLES} ${file})
        add_test(NAME example_schema_${name}
            COMMAND ${CMAKE_COMMAND} -DXMLLINT=${CS_XMLLINT} -DSCHEMA=${CS_SCHEMA_DIR}/${ext}.xsd
                    -DFILE=${file} -DEXPECTED=0 -P ${CMAKE_CURRENT_SOURCE_DIR}/RunXmllint.cmake)
    endforeach()
endif()

add_test(NAME example_validate
    COMMAND cstool validate --werror ${cs_icon_options} ${cs_template_dirs} ${cs_ui_dirs})
# As an author types it: icons in the "icons" folder beside the UI files by default.
add_test(NAME example_validate_defaults
    COMMAND cstool validate examples/templates examples/ui
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
add_test(NAME example_validate_recursive COMMAND cstool validate --werror --recursive ${CS_EXAMPLES})

# Every template directory keeps a current map.
foreach(directory IN LISTS cs_template_dirs)
    file(RELATIVE_PATH name ${CS_EXAMPLES} ${directory})
    string(REPLACE "/" "_" name ${name})
    add_test(NAME example_map_check_${name} COMMAND cstool map --check ${directory})
endforeach()

# The UI directories hold the catalogue's default keymap.
add_test(NAME example_keys
    COMMAND cstool keys ${cs_ui_dirs} ${cs_template_dirs} ${cs_example_aliases})
set_tests_properties(example_keys PROPERTIES FAIL_REGULAR_EXPRESSION "warning:")

add_test(NAME example_ui COMMAND cstool ui ${cs_icon_options} ${cs_ui_dirs})
set_tests_properties(example_ui PROPERTIES FAIL_REGULAR_EXPRESSION "missing \\(")
set_tests_properties(example_validate example_validate_defaults example_validate_recursive
    example_ui example_keys PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
