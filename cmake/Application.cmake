# The platform, the application library and the three programs.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets PrintSupport Svg Multimedia Network Concurrent)
if(TESSIVO_PLATFORM STREQUAL "linux")
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(PULSE REQUIRED IMPORTED_TARGET libpulse)
    pkg_check_modules(EVDEV REQUIRED IMPORTED_TARGET libevdev)
endif()

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

tessivo_sources(platform_sources platform/${TESSIVO_PLATFORM} platform/qt platform/simulated)
file(GLOB platform_common CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/*.cpp ${CMAKE_SOURCE_DIR}/platform/*.h)
add_library(platform STATIC ${platform_sources} ${platform_common})
# The kit has a field named `slots`.
target_compile_definitions(platform PUBLIC QT_NO_KEYWORDS)
target_link_libraries(platform PUBLIC kit Qt6::Core Qt6::Gui Qt6::Multimedia Qt6::Network)
if(TESSIVO_PLATFORM STREQUAL "linux")
    target_link_libraries(platform PRIVATE PkgConfig::PULSE PkgConfig::EVDEV)
endif()
set_target_properties(platform PROPERTIES LINKER_LANGUAGE CXX)
target_precompile_headers(platform PRIVATE cmake/PlatformPrecompiled.h)
target_compile_definitions(platform PRIVATE
    TESSIVO_FEED_URL="${TESSIVO_FEED_URL}" TESSIVO_RELEASES_URL="${TESSIVO_RELEASES_URL}")

tessivo_sources(app_sources app)
list(FILTER app_sources EXCLUDE REGEX "app/Tessivo(App|Demo|Gallery)\\.cpp$")
list(FILTER app_sources EXCLUDE REGEX "app/demo/")
if(TESSIVO_WINDOWLESS)
    list(FILTER app_sources INCLUDE REGEX "app/(readers|model)/")
endif()
add_library(app STATIC ${app_sources} app/resources/tessivo.qrc)
target_link_libraries(app PUBLIC platform Qt6::Widgets Qt6::PrintSupport Qt6::Svg Qt6::Concurrent)
set_target_properties(app PROPERTIES LINKER_LANGUAGE CXX)
target_compile_definitions(app PRIVATE TESSIVO_HELP_URL="${TESSIVO_HELP_URL}")
target_precompile_headers(app PRIVATE cmake/ApplicationPrecompiled.h)

if(TESSIVO_WINDOWLESS)
    return()
endif()

add_executable(tessivo app/TessivoApp.cpp)
target_link_libraries(tessivo PRIVATE app)

tessivo_sources(demo_sources app/demo)
add_executable(tessivo-demo app/TessivoDemo.cpp ${demo_sources})
target_link_libraries(tessivo-demo PRIVATE app)
target_compile_definitions(tessivo-demo PRIVATE TESSIVO_MACHINES_BUILD="${CMAKE_SOURCE_DIR}/platform/simulated/machines")

add_executable(tessivo-gallery EXCLUDE_FROM_ALL app/TessivoGallery.cpp)
target_link_libraries(tessivo-gallery PRIVATE app)
target_compile_definitions(tessivo-gallery PRIVATE TESSIVO_MACHINES_BUILD="${CMAKE_SOURCE_DIR}/platform/simulated/machines")

tessivo_sources(probe_sources probe)
add_executable(tessivo-probe ${probe_sources})
target_link_libraries(tessivo-probe PRIVATE app)
