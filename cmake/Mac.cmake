# What a Mac needs of a build: Objective-C++, and programs that are bundles with an identifier of their own. Without
# one the system shows no file panel and asks for the microphone in Terminal's name.
enable_language(OBJCXX)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)

# The `.mm` files of a folder, which the precompiled headers of C++ don't fit.
function(tessivo_objective_cpp target folder)
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.mm)
    target_sources(${target} PRIVATE ${files})
    set_source_files_properties(${files} PROPERTIES SKIP_PRECOMPILE_HEADERS ON COMPILE_OPTIONS -fobjc-arc)
endfunction()

# A program of these sources as NAME.app.
function(tessivo_bundle target name identifier)
    qt_add_executable(${target} ${ARGN})
    set(TESSIVO_BUNDLE_NAME ${name})
    set(TESSIVO_BUNDLE_ID ${identifier})
    configure_file(${CMAKE_SOURCE_DIR}/packaging/macos/Info.plist.in ${CMAKE_BINARY_DIR}/${target}-Info.plist @ONLY)
    set(icon ${CMAKE_SOURCE_DIR}/packaging/macos/Tessivo.icns)
    set(language_table ${CMAKE_SOURCE_DIR}/kit/resources/strings-es.json)
    target_sources(${target} PRIVATE ${icon} ${language_table})
    set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    set_source_files_properties(${language_table} PROPERTIES
        MACOSX_PACKAGE_LOCATION Resources/TessivoKit_TessivoKit.bundle)
    set_target_properties(${target} PROPERTIES MACOSX_BUNDLE ON OUTPUT_NAME ${name}
        MACOSX_BUNDLE_INFO_PLIST ${CMAKE_BINARY_DIR}/${target}-Info.plist)
    # Without its plug-in Qt takes every permission for denied.
    qt_import_plugins(${target} INCLUDE Qt6::QDarwinCameraPermissionPlugin Qt6::QDarwinMicrophonePermissionPlugin)
endfunction()
