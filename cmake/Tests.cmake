# One test program for each folder of tests/; its files are found, never listed.
find_package(GTest REQUIRED)
find_package(Qt6 REQUIRED COMPONENTS Test)
if(TESSIVO_PLATFORM STREQUAL "linux")
    find_package(Qt6 REQUIRED COMPONENTS DBus)
endif()
include(GoogleTest)

set(test_environment
    "LC_ALL=en_US.UTF-8;TZ=America/Los_Angeles;QT_QPA_PLATFORM=offscreen;QT_QPA_PLATFORMTHEME=;ASAN_OPTIONS=detect_leaks=0;TSAN_OPTIONS=ignore_noninstrumented_modules=1 halt_on_error=1 die_after_fork=0")

function(tessivo_test folder)
    cmake_parse_arguments(arg "KIT_ONLY" "LABEL;SHARDS;TIMEOUT" "" ${ARGN})
    tessivo_sources(sources tests/${folder})
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    list(FILTER sources EXCLUDE REGEX "/tests/sound/StandInCard") # loaded by other programs
    if(TESSIVO_SANITIZE STREQUAL "thread")
        # Its microphone's thread is handed work through Qt's event queue, whose lock the thread sanitizer can't see.
        list(FILTER sources EXCLUDE REGEX "/tests/sound/QtMicrophoneTests")
    endif()
    if(NOT TESSIVO_PLATFORM STREQUAL "linux")
        # What is of Linux alone, wherever it stands.
        foreach(source ${sources})
            file(STRINGS ${source} linux REGEX "^#include \"(platform/linux/|tests/platform/linux/|tests/SmallDisk)" LIMIT_COUNT 1)
            if(linux)
                list(REMOVE_ITEM sources ${source})
            endif()
        endforeach()
    endif()
    add_executable(${folder}_tests ${sources})
    target_compile_definitions(${folder}_tests PRIVATE
        TESSIVO_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
        TESSIVO_MACHINES="${CMAKE_SOURCE_DIR}/platform/simulated/machines"
        TESSIVO_SOURCE="${CMAKE_SOURCE_DIR}"
        TESSIVO_BUILD="${CMAKE_BINARY_DIR}")
    if(NOT arg_LABEL)
        set(arg_LABEL ${folder})
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    if(arg_KIT_ONLY)
        target_link_libraries(${folder}_tests PRIVATE kit GTest::gmock GTest::gtest_main)
        target_precompile_headers(${folder}_tests PRIVATE cmake/KitPrecompiled.h <gmock/gmock.h>)
    else()
        target_link_libraries(${folder}_tests PRIVATE app Qt6::Test GTest::gmock GTest::gtest)
        # One precompiled header serves all test programs.
        get_property(owner GLOBAL PROPERTY tessivo_precompiled_tests)
        if(owner)
            target_precompile_headers(${folder}_tests REUSE_FROM ${owner})
        else()
            target_precompile_headers(${folder}_tests PRIVATE cmake/ApplicationPrecompiled.h <gmock/gmock.h>)
            set_property(GLOBAL PROPERTY tessivo_precompiled_tests ${folder}_tests)
        endif()
    endif()
    # The whole program in a few shards: starting a window system for each case would cost more than the cases.
    if(NOT arg_SHARDS)
        set(arg_SHARDS 1)
    endif()
    math(EXPR last "${arg_SHARDS} - 1")
    foreach(shard RANGE ${last})
        add_test(NAME ${folder}.${shard} COMMAND ${folder}_tests)
        set_tests_properties(${folder}.${shard} PROPERTIES
            LABELS ${arg_LABEL} TIMEOUT ${arg_TIMEOUT}
            ENVIRONMENT "${test_environment};GTEST_TOTAL_SHARDS=${arg_SHARDS};GTEST_SHARD_INDEX=${shard}")
    endforeach()
endfunction()

if(NOT TESSIVO_WINDOWLESS)
    tessivo_test(kit KIT_ONLY SHARDS 4)
    tessivo_test(faults KIT_ONLY TIMEOUT 600)
    tessivo_test(app LABEL pages SHARDS 4)
endif()
if(TESSIVO_PLATFORM STREQUAL "macos" AND NOT TESSIVO_WINDOWLESS)
    tessivo_test(mac)
    add_dependencies(mac_tests tessivo-demo)
elseif(NOT TESSIVO_WINDOWLESS)
    tessivo_test(window TIMEOUT 600)
    target_link_libraries(window_tests PRIVATE Qt6::DBus)
    tessivo_test(whole TIMEOUT 600)
    # Its camera thread is handed work through Qt's event queue, whose lock the thread sanitizer can't see.
    tessivo_test(platform LABEL hardware)
    include(cmake/MacTests.cmake)
endif()
tessivo_test(threads TIMEOUT 600)
if(TESSIVO_PLATFORM STREQUAL "linux")
    tessivo_test(sound TIMEOUT 600)
    # A sound card that the tests' PulseAudio daemon loads; it is free of the sanitizers, since the daemon is.
    pkg_check_modules(ALSA REQUIRED IMPORTED_TARGET alsa)
    add_library(stand_in_card MODULE tests/sound/StandInCard.cpp)
    target_link_libraries(stand_in_card PRIVATE PkgConfig::ALSA)
    target_compile_definitions(stand_in_card PRIVATE PIC)
    target_compile_definitions(sound_tests PRIVATE TESSIVO_STAND_IN_CARD="$<TARGET_FILE:stand_in_card>")
    add_dependencies(sound_tests stand_in_card)
endif()

# These run the programs as a person would.
if(TARGET whole_tests)
    add_dependencies(whole_tests tessivo tessivo-probe)
    add_dependencies(window_tests tessivo tessivo-demo)
endif()
