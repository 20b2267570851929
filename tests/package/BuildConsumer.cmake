# Configures, builds and runs the consumer project against the installed package.
file(REMOVE_RECURSE ${BINARY})
execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${BINARY} -G ${GENERATOR}
            -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${PREFIX}
    RESULT_VARIABLE configured)
if(NOT configured EQUAL 0)
    message(FATAL_ERROR "The consumer project does not configure against ${PREFIX}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BINARY} RESULT_VARIABLE built)
if(NOT built EQUAL 0)
    message(FATAL_ERROR "The consumer project does not build against ${PREFIX}")
endif()
execute_process(COMMAND ${BINARY}/consumer RESULT_VARIABLE ran OUTPUT_VARIABLE output)
message(STATUS "consumer printed: ${output}")
if(NOT ran EQUAL 0 OR NOT output MATCHES "ran line from the installed package")
    message(FATAL_ERROR "The consumer did not run as expected (exit ${ran})")
endif()
