# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -DFROM=file -DTO=file -P CopyIfAbsent.cmake
if(NOT EXISTS "${TO}")
    configure_file("${FROM}" "${TO}" COPYONLY)
endif()
file(TOUCH_NOCREATE "${TO}") # so that the build rule counts as up to date
