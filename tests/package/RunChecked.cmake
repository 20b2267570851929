# run_checked(<what> <command...>): runs a command, fails the script with its output when it
# does not succeed, and leaves its standard output in "output".
function(run_checked what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
                    ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${what} failed (${result}):\n${output}${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()
