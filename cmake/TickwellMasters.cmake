# SPDX-License-Identifier: GPL-3.0-or-later
# The eight files that the program requires, copied next to its binary.

set(TICKWELL_SOUNDS TKW00.wav TKW01.wav TKW02.wav TKW03.wav TKW04.wav TKW05.wav)

# Help and sounds are copied whenever their sources change; an existing DayDate.mdb belongs to the user and is kept.
function(tickwell_stage_masters target folder)
    set(staged "")
    add_custom_command(OUTPUT "${folder}/Help.hlp"
        COMMAND "${CMAKE_COMMAND}" -E copy "${PROJECT_SOURCE_DIR}/data/help/Help.html" "${folder}/Help.hlp"
        DEPENDS "${PROJECT_SOURCE_DIR}/data/help/Help.html" VERBATIM)
    list(APPEND staged "${folder}/Help.hlp")
    foreach(sound IN LISTS TICKWELL_SOUNDS)
        add_custom_command(OUTPUT "${folder}/${sound}"
            COMMAND "${CMAKE_COMMAND}" -E copy "${PROJECT_SOURCE_DIR}/data/sounds/${sound}" "${folder}/${sound}"
            DEPENDS "${PROJECT_SOURCE_DIR}/data/sounds/${sound}" VERBATIM)
        list(APPEND staged "${folder}/${sound}")
    endforeach()
    # The unmodified database is rebuilt when its scripts change; the copy next to the binary is only made once.
    set(pristine "${PROJECT_BINARY_DIR}/masters/DayDate.mdb")
    file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/masters")
    set(scripts "${PROJECT_SOURCE_DIR}/data/DayDate.schema.sql" "${PROJECT_SOURCE_DIR}/data/DayDate.holidays.sql")
    add_custom_command(OUTPUT "${pristine}"
        COMMAND make_day_database "${pristine}" ${scripts}
        DEPENDS make_day_database ${scripts} VERBATIM)
    add_custom_command(OUTPUT "${folder}/DayDate.mdb"
        COMMAND "${CMAKE_COMMAND}" "-DFROM=${pristine}" "-DTO=${folder}/DayDate.mdb"
                -P "${PROJECT_SOURCE_DIR}/cmake/CopyIfAbsent.cmake"
        DEPENDS "${pristine}" VERBATIM)
    add_custom_target(${target} ALL DEPENDS ${staged} "${folder}/DayDate.mdb")
endfunction()
