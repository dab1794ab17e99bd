# TessivoKit: every rule, text and format. No window, no platform service, no Qt.
find_package(ICU 72 REQUIRED COMPONENTS uc i18n data)
find_package(simdjson REQUIRED)
find_package(Boost 1.81 REQUIRED)
find_package(Threads REQUIRED)

tessivo_sources(kit_sources kit)
add_library(kit STATIC ${kit_sources})
target_link_libraries(kit PUBLIC tessivo_settings Boost::headers Threads::Threads
    PRIVATE simdjson::simdjson ICU::i18n ICU::uc ICU::data)
target_compile_definitions(kit PRIVATE
    TESSIVO_RESOURCES_BUILD="${CMAKE_SOURCE_DIR}/kit/resources")
target_precompile_headers(kit PRIVATE cmake/KitPrecompiled.h)
if(TESSIVO_FUZZ)
    target_compile_options(kit PRIVATE -fsanitize=fuzzer-no-link)
endif()
