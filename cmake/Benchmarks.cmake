# What is timed; build with the release preset.
find_package(benchmark REQUIRED)
tessivo_sources(benchmark_sources benchmarks)
list(FILTER benchmark_sources INCLUDE REGEX "\\.cpp$")
foreach(source ${benchmark_sources})
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE app benchmark::benchmark)
endforeach()
