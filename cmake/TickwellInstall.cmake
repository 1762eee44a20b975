# SPDX-License-Identifier: GPL-3.0-or-later
# Installation paths. Program, helpers and master files find each other by their relative paths.

install(TARGETS tickwell RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(TARGETS tickwell-cd tickwell-ical tickwell-print tickwell-sound RUNTIME DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}/tickwell")

set(shared "${CMAKE_INSTALL_DATADIR}/tickwell")
install(FILES "${PROJECT_BINARY_DIR}/masters/DayDate.mdb" DESTINATION "${shared}")
install(FILES "${PROJECT_SOURCE_DIR}/data/help/Help.html" DESTINATION "${shared}" RENAME Help.hlp)
list(TRANSFORM TICKWELL_SOUNDS PREPEND "${PROJECT_SOURCE_DIR}/data/sounds/" OUTPUT_VARIABLE sounds)
install(FILES ${sounds} DESTINATION "${shared}")

set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
    install(FILES "${PROJECT_SOURCE_DIR}/data/icons/tickwell-${size}.png"
        DESTINATION "${icons}/${size}x${size}/apps" RENAME tickwell.png)
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/data/icons/tickwell.svg" DESTINATION "${icons}/scalable/apps")

install(FILES "${PROJECT_SOURCE_DIR}/data/desktop/tickwell.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")

# The program has no public address of its own, and .invalid is nobody's. Whoever publishes it sets the address of a copy of
# this source tree, from which software centres take the pictures.
set(TICKWELL_HOMEPAGE "https://tickwell.invalid" CACHE STRING "Homepage of the package, without a trailing slash")
configure_file("${PROJECT_SOURCE_DIR}/data/desktop/tickwell.metainfo.xml.in" "${PROJECT_BINARY_DIR}/tickwell.metainfo.xml" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/tickwell.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

# tickwell_install_packed(FILE DESTINATION NAME [COMPONENT]): installs a file compressed with gzip, reproducibly.
function(tickwell_install_packed file destination name)
    string(MAKE_C_IDENTIFIER "packed_${destination}_${name}" target)
    set(packed "${PROJECT_BINARY_DIR}/packed/${destination}/${name}.gz")
    cmake_path(GET packed PARENT_PATH folder)
    file(MAKE_DIRECTORY "${folder}")
    add_custom_command(OUTPUT "${packed}"
        COMMAND gzip -9n < "${file}" > "${packed}"
        DEPENDS "${file}" VERBATIM)
    add_custom_target(${target} ALL DEPENDS "${packed}")
    install(FILES "${packed}" DESTINATION "${destination}" ${ARGN})
endfunction()

tickwell_install_packed("${PROJECT_SOURCE_DIR}/data/man/tickwell.1" "${CMAKE_INSTALL_MANDIR}/man1" tickwell.1)
tickwell_install_packed("${PROJECT_SOURCE_DIR}/data/man/ja/tickwell.1" "${CMAKE_INSTALL_MANDIR}/ja/man1" tickwell.1)
