# SPDX-License-Identifier: GPL-3.0-or-later
# What the distribution hardens its programs with (dpkg-buildflags, hardening=+all) and what its hardening-check asks
# for: against faults that are left in spite of all tests.
include(CheckPIESupported)
check_pie_supported()

# Programs for users and those that the tests run in their place are hardened; the sanitizers have checks of their own,
# and a build without optimizing cannot fortify.
set(TICKWELL_HARDENED ON)
if(TICKWELL_SANITIZERS OR CMAKE_BUILD_TYPE STREQUAL "Debug" OR NOT CMAKE_BUILD_TYPE)
    set(TICKWELL_HARDENED OFF)
endif()

function(tickwell_harden target)
    if(NOT TICKWELL_HARDENED)
        return()
    endif()
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    # Undefined first: who builds a package may have defined it already.
    target_compile_options(${target} PRIVATE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong
                                             -Wformat -Werror=format-security)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        target_compile_options(${target} PRIVATE -fstack-clash-protection -fcf-protection)
    endif()
    target_link_options(${target} PRIVATE LINKER:-z,relro LINKER:-z,now)
endfunction()
