# SPDX-License-Identifier: GPL-3.0-or-later
# The three kinds of targets of this project. All are compiled with the same options.

# The compile options of every target of this project.
function(tickwell_compile_rules target)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src")
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                                             -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                                                 QT_USE_QSTRINGBUILDER
                                                 QT_DISABLE_DEPRECATED_BEFORE=0x060400)
    tickwell_harden(${target})
    if(TICKWELL_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(TICKWELL_SANITIZERS)
        target_compile_options(${target} PRIVATE -fsanitize=${TICKWELL_SANITIZERS} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${TICKWELL_SANITIZERS})
    endif()
endfunction()

# tickwell_library(core SOURCES a.cpp b.cpp LINKS Qt6::Core): the static library of a folder of src/, named
# tickwell_core, with the alias Tickwell::core.
function(tickwell_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_library(tickwell_${name} STATIC ${arg_SOURCES})
    add_library(Tickwell::${name} ALIAS tickwell_${name})
    target_link_libraries(tickwell_${name} PUBLIC ${arg_LINKS})
    tickwell_compile_rules(tickwell_${name})
    set_target_properties(tickwell_${name} PROPERTIES UNITY_BUILD "${TICKWELL_UNITY}" UNITY_BUILD_BATCH_SIZE 0)
    # For tests/house/components.py: "component|its folder|its sources|what it links".
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE folder)
    set_property(GLOBAL APPEND_STRING PROPERTY TICKWELL_COMPONENTS "${name}|${folder}|${arg_SOURCES}|${arg_LINKS}\n")
endfunction()

# Writes the components and their links to components.txt in the build folder.
function(tickwell_write_components)
    get_property(components GLOBAL PROPERTY TICKWELL_COMPONENTS)
    file(WRITE "${PROJECT_BINARY_DIR}/components.txt" "${components}")
endfunction()

# Precompiles the headers that nearly every test includes. Off for clang-tidy and clangd, which cannot read GCC's files.
function(tickwell_precompile_tests target)
    if(TICKWELL_PRECOMPILED_TESTS)
        target_precompile_headers(${target} REUSE_FROM test_headers)
        target_compile_options(${target} PRIVATE -fpch-preprocess) # ccache needs it
    endif()
endfunction()

# tickwell_test(core words LINKS Tickwell::core): builds tests/core/tst_words.cpp and registers it as core.words.
function(tickwell_test folder subject)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "SOURCES;LINKS")
    set(target tst_${folder}_${subject})
    # Called explicitly, because AUTOMOC would add a second, empty source to each test.
    qt6_generate_moc(tst_${subject}.cpp "${CMAKE_CURRENT_BINARY_DIR}/tst_${subject}.moc")
    add_executable(${target} tst_${subject}.cpp "${CMAKE_CURRENT_BINARY_DIR}/tst_${subject}.moc" ${arg_SOURCES})
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${target} PRIVATE ${arg_LINKS} Tickwell::test_support Qt6::Test)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests" "${CMAKE_CURRENT_BINARY_DIR}")
    tickwell_compile_rules(${target})
    # The QTRY_ macros of newer versions narrow numbers of milliseconds in the source that uses them.
    if(Qt6_VERSION VERSION_GREATER_EQUAL 6.5)
        target_compile_options(${target} PRIVATE -Wno-conversion)
    endif()
    tickwell_precompile_tests(${target})
    add_test(NAME ${folder}.${subject} COMMAND ${target})
    # No real home, no screen and a fixed locale, so the result is the same on every machine.
    set_tests_properties(${folder}.${subject} PROPERTIES
        LABELS "unit;${folder}" TIMEOUT 300
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=Asia/Tokyo;LANG=C.UTF-8;HOME=${CMAKE_BINARY_DIR}/no-home;XDG_RUNTIME_DIR=${CMAKE_BINARY_DIR}/no-home")
endfunction()
