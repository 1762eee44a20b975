# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -DMONKEY=program -P same_twice.cmake: checks that a seed repeats the same run.
foreach(run IN ITEMS first second)
    execute_process(COMMAND "${MONKEY}" --deeds 300 --seed 7 OUTPUT_VARIABLE told RESULT_VARIABLE ended)
    string(REGEX MATCH "fingerprint [0-9a-f-]+" ${run} "${told}")
    if(NOT ended EQUAL 0 OR NOT ${run})
        message(FATAL_ERROR "the ${run} run ended with ${ended}:\n${told}")
    endif()
endforeach()
if(NOT first STREQUAL second)
    message(FATAL_ERROR "${first}, then ${second}")
endif()
