# SPDX-License-Identifier: GPL-3.0-or-later
# Debian's hardening flags (dpkg-buildflags, hardening=+all), as its hardening-check expects them. They limit the damage
# of faults that the tests have missed.
include(CheckPIESupported)
check_pie_supported()

# Hardens the program and the builds of it that tests run. Not with sanitizers, which have their own checks, and not
# without optimisation, because then nothing can be fortified.
set(TICKWELL_HARDENED ON)
if(TICKWELL_SANITIZERS OR CMAKE_BUILD_TYPE STREQUAL "Debug" OR NOT CMAKE_BUILD_TYPE)
    set(TICKWELL_HARDENED OFF)
endif()

function(tickwell_harden target)
    if(NOT TICKWELL_HARDENED)
        return()
    endif()
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    # Undefined first, because a package build may already define it.
    target_compile_options(${target} PRIVATE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong
                                             -Wformat -Werror=format-security)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        target_compile_options(${target} PRIVATE -fstack-clash-protection -fcf-protection)
    endif()
    target_link_options(${target} PRIVATE LINKER:-z,relro LINKER:-z,now)
endfunction()
