# What a Mac's platform does through the system's C interfaces, over a small system that stands in for them.
file(GLOB macos_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/macos/*.cpp)
add_library(macos_platform STATIC ${macos_sources})
target_link_libraries(macos_platform PUBLIC platform)
target_include_directories(macos_platform BEFORE PUBLIC ${CMAKE_SOURCE_DIR}/tests/macos/system)
tessivo_test(macos)
target_link_libraries(macos_tests PRIVATE macos_platform)
# The support tool's commands, which the tests run on the stand-in.
tessivo_sources(macos_probe probe)
list(FILTER macos_probe EXCLUDE REGEX "/TessivoProbe\\.cpp$")
target_sources(macos_tests PRIVATE ${macos_probe})

# A fault put into one file of the platform, which the tests must catch. It takes the place of the right file when
# the test program is linked.
function(tessivo_mac_fault name file find replace)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS platform/macos/${file})
    file(READ ${CMAKE_SOURCE_DIR}/platform/macos/${file} source)
    string(FIND "${source}" "${find}" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "The fault ${name} fits nowhere in ${file}: ${find}")
    endif()
    string(REPLACE "${find}" "${replace}" source "${source}")
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/mac_faults/${name}.cpp CONTENT "${source}")
    add_executable(mac_fault_${name} ${CMAKE_BINARY_DIR}/mac_faults/${name}.cpp $<TARGET_OBJECTS:macos_tests>)
    target_link_libraries(mac_fault_${name} PRIVATE macos_platform app GTest::gmock GTest::gtest)
    set_target_properties(mac_fault_${name} PROPERTIES AUTOMOC OFF)
    add_test(NAME mac_fault.${name} COMMAND sh -c "! \"$0\" --gtest_fail_fast --gtest_brief=1" $<TARGET_FILE:mac_fault_${name}>)
    set_tests_properties(mac_fault.${name} PROPERTIES LABELS macos TIMEOUT 120 ENVIRONMENT "${test_environment}")
endfunction()

if(TESSIVO_SANITIZE)
    target_compile_definitions(macos_tests PRIVATE TESSIVO_SANITIZED)
else()
    tessivo_mac_fault(missing_release MacRegistry.cpp
        "name(IOObjectCopyClass(object->get()))" "name(CFStringRef(CFRetain(IOObjectCopyClass(object->get()))))")
    tessivo_mac_fault(second_release MacRegistry.cpp
        "    out.readParent =" "    if (properties) CFRelease(properties.get());\n    out.readParent =")
    tessivo_mac_fault(get_released MacRegistry.cpp
        "const CFTypeRef source = CFArrayGetValueAtIndex(sources.get(), i);"
        "const CFTypeRef source = CFArrayGetValueAtIndex(sources.get(), i);\n        const CFRef<CFTypeRef> owner(source);")
    tessivo_mac_fault(dictionary_consumed_twice MacRegistry.cpp
        "    IOObject iterator;" "    const CFRef<CFMutableDictionaryRef> owner(matching);\n    IOObject iterator;")
    tessivo_mac_fault(iterator_leaked MacRegistry.cpp
        "    for (int pass = 1;" "    if (fullest.empty()) {\n        new IOObject(std::move(iterator));\n        return fullest;\n    }\n    for (int pass = 1;")
    tessivo_mac_fault(short_list_kept MacRegistry.cpp
        "pass < passes && !IOIteratorIsValid(iterator.get())" "pass < 0")
    tessivo_mac_fault(size_for_count MacAudioObjects.cpp
        "std::min(values.size(), std::size_t(bytes / sizeof(std::uint32_t)))" "*size")
    tessivo_mac_fault(wrong_scope MacAudioObjects.cpp ".mScope = address.scope" ".mScope = address.scope ? UInt32(0x676c6f62) : 0")
    tessivo_mac_fault(boolean_as_number PropertyValue.cpp "return bool(CFBooleanGetValue" "return std::int64_t(CFBooleanGetValue")
    tessivo_mac_fault(fixed_buffer PropertyValue.cpp "std::size_t(convert(nullptr, 0))" "256")
    tessivo_mac_fault(half_put_back MacDefaults.cpp "    store(&Change::before);\n" "")
    tessivo_mac_fault(group_left MacSystemTools.cpp "    ::kill(-child, SIGKILL);\n" "")
    tessivo_mac_fault(descriptors_inherited MacSystemTools.cpp " | POSIX_SPAWN_CLOEXEC_DEFAULT" "")
    tessivo_mac_fault(end_unseen MacSystemTools.cpp "!watched && errno == ESRCH" "!watched")
    tessivo_mac_fault(release_let_through MacKeyEvents.cpp "    m_kept.insert(event.code);\n    return true;" "    return true;")
    tessivo_mac_fault(locking_callback ToneSource.cpp
        "    const Tone* tone = m_published" "    static pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;\n    pthread_mutex_lock(&mutex);\n    pthread_mutex_unlock(&mutex);\n    const Tone* tone = m_published")
endif()
