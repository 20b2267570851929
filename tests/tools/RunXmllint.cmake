# Runs xmllint against one schema and requires the exact exit code: 0 for a valid file, 3
# ("fails to validate") for an invalid one. Any other code (a schema that does not compile, a
# file that is not well-formed XML) fails the test, so a broken schema cannot pass as a refusal.
#   cmake -DXMLLINT=... -DSCHEMA=... -DFILE=... -DEXPECTED=0|3 -P RunXmllint.cmake
execute_process(COMMAND ${XMLLINT} --noout --schema ${SCHEMA} ${FILE}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
message("${output}")
if(NOT result STREQUAL EXPECTED)
    message(FATAL_ERROR "xmllint exited with ${result}, expected ${EXPECTED}")
endif()
