# SPDX-License-Identifier: GPL-3.0-or-later
# cpack -G DEB: a package for Debian 12 and later with everything that cmake --install installs, and the files that Debian
# requires.

set(TICKWELL_MAINTAINER "Tickwell authors <tickwell@localhost.invalid>" CACHE STRING
    "Maintainer of the package: Name <address>")

set(debian_doc "${CMAKE_INSTALL_DATADIR}/doc/tickwell")
install(FILES "${PROJECT_SOURCE_DIR}/data/debian/copyright" DESTINATION "${debian_doc}" COMPONENT debian EXCLUDE_FROM_ALL)
tickwell_install_packed("${PROJECT_SOURCE_DIR}/data/debian/changelog" "${debian_doc}" changelog.Debian
    COMPONENT debian EXCLUDE_FROM_ALL)
tickwell_install_packed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${debian_doc}" changelog COMPONENT debian EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tickwell)
set(CPACK_PACKAGE_VENDOR Tickwell)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "clock that stays on the desktop, in Japanese")
set(CPACK_PACKAGE_DESCRIPTION
"A small window without a frame that stays above all others and shows two
lines of text, which wipe in as they change: date and time in turn with the
anniversaries and holidays of today, the time since the machine was started,
a stopwatch, a countdown, the battery, the memory, or an audio CD.
.
A calendar with holidays and day marks, an anniversary book, a stopwatch with
printed laps, a repeating timer, a CD player and a chime open from its menu.
All its texts are Japanese.")
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};Tickwell;ALL;/;${PROJECT_BINARY_DIR};Tickwell;debian;/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 0local1) # lower than the version of any distribution package
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${TICKWELL_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# In addition to the linked libraries: a Japanese font, one of the substitutes for the font that the layout was designed
# for; the time zones; Qt's Japanese translations; the battery service.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-monapo | fonts-ipafont-gothic | fonts-ipaexfont-gothic | fonts-takao-gothic | fonts-vlgothic | fonts-noto-cjk, \
tzdata")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, upower, xwayland")
include(CPack)
