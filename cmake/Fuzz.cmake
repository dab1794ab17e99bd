# libFuzzer targets: one for each file of tests/fuzz, started from the seeds of its own name.
tessivo_sources(fuzz_sources tests/fuzz)
list(FILTER fuzz_sources INCLUDE REGEX "\\.cpp$")
foreach(source ${fuzz_sources})
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE kit)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    # What a run finds goes into the first folder; the seeds are only read.
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/corpus/${name})
    add_test(NAME fuzz.${name}
        COMMAND ${name} -max_total_time=10 -timeout=10 -rss_limit_mb=2048
            ${CMAKE_BINARY_DIR}/corpus/${name} ${CMAKE_SOURCE_DIR}/tests/fuzz/seeds/${name})
    set_tests_properties(fuzz.${name} PROPERTIES LABELS fuzz)
endforeach()
