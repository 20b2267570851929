# Runs the benchmark programs and writes their results to RESULTS_DIR. Repetitions of library
# and anchor benchmarks are interleaved at random, so that a burst of load on a shared machine
# does not fall on one side of a comparison only.
# Files:
#   <program>.json   the benchmark library's JSON output (medians of REPETITIONS runs)
#   results.md       the comparison tables of every program, with the machine's state
# Usage: cmake -DPROGRAMS=<path>|<path>... -DRESULTS_DIR=<dir> -DREPETITIONS=<n>
#              [-DEXTRA_ARGS=<arg>|<arg>...] -P RunBenchmarks.cmake
cmake_minimum_required(VERSION 3.21)

string(REPLACE "|" ";" programs "${PROGRAMS}")
string(REPLACE "|" ";" extra_args "${EXTRA_ARGS}")
if(NOT REPETITIONS)
    set(REPETITIONS 5)
endif()
file(MAKE_DIRECTORY ${RESULTS_DIR})

set(sections "")
foreach(program IN LISTS programs)
    get_filename_component(name ${program} NAME_WE)
    set(markdown ${RESULTS_DIR}/${name}.md.tmp)
    file(REMOVE ${markdown})
    message(STATUS "Running ${name}")
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
            ${program}
            --benchmark_repetitions=${REPETITIONS}
            --benchmark_report_aggregates_only=true
            --benchmark_enable_random_interleaving=true
            --benchmark_out=${RESULTS_DIR}/${name}.json
            --benchmark_out_format=json
            --cs_markdown=${markdown}
            ${extra_args}
        RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${name} failed: ${result}")
    endif()
    file(READ ${markdown} section)
    file(REMOVE ${markdown})
    string(APPEND sections "${section}")
endforeach()

string(TIMESTAMP now "%Y-%m-%d %H:%M UTC" UTC)
cmake_host_system_information(RESULT cores QUERY NUMBER_OF_PHYSICAL_CORES)
cmake_host_system_information(RESULT processor QUERY PROCESSOR_DESCRIPTION)
set(load "unknown")
if(EXISTS /proc/loadavg)
    file(READ /proc/loadavg load)
    string(REGEX MATCH "^[^ ]+ [^ ]+ [^ ]+" load "${load}")
endif()
file(WRITE ${RESULTS_DIR}/results.md
"# Benchmark results

Run ${now} on ${processor} (${cores} cores), load average at the end: ${load}.
Each figure is the median of ${REPETITIONS} repetitions, interleaved at random; library and anchor
were measured in the same run, and the ratio is library / anchor (for throughput: library speed /
anchor speed). Times are CPU time of the benchmark thread, except for the thread bridges, which
are real time because they wait for other threads.
The JSON files beside this one hold every figure with its spread.

${sections}")
message(STATUS "Results written to ${RESULTS_DIR}")
