# Warnings, sanitizers and the one set of flags that every target shares.
set(CMAKE_CXX_FLAGS_DEV "-O1 -g1")
# What optimising takes away no sanitizer sees; and it builds in half the time.
set(CMAKE_CXX_FLAGS_CHECK "-O0 -g1")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

add_library(tessivo_settings INTERFACE)
target_include_directories(tessivo_settings INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(tessivo_settings INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Wno-missing-field-initializers
    # GCC 12 sees uninitialized members wherever a variant is moved.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
if(TESSIVO_SANITIZE)
    target_compile_options(tessivo_settings INTERFACE
        -fsanitize=${TESSIVO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(tessivo_settings INTERFACE -fsanitize=${TESSIVO_SANITIZE})
else()
    # It links faster where the system has it; Debian 13 doesn't bring it with the compiler.
    include(CheckLinkerFlag)
    check_linker_flag(CXX -fuse-ld=gold TESSIVO_HAS_GOLD)
    target_link_options(tessivo_settings INTERFACE $<$<BOOL:${TESSIVO_HAS_GOLD}>:-fuse-ld=gold>)
endif()
target_compile_definitions(tessivo_settings INTERFACE
    TESSIVO_VERSION="${PROJECT_VERSION}"
    TESSIVO_SUPPORT_HOST="${TESSIVO_SUPPORT_HOST}")

# All .cpp and .h files below the given folders; a new file joins the build by itself.
function(tessivo_sources out)
    set(found)
    foreach(folder ${ARGN})
        file(GLOB_RECURSE files CONFIGURE_DEPENDS
            ${CMAKE_SOURCE_DIR}/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/${folder}/*.h)
        list(APPEND found ${files})
    endforeach()
    set(${out} ${found} PARENT_SCOPE)
endfunction()
