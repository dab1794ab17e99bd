# What the programs are on a Mac: bundles with an identifier of their own. Without one the system shows no file
# panel and asks the person in Terminal's name. Files in `tessivo_program` may come with `.mm`.
enable_language(OBJCXX)
set(CMAKE_OBJCXX_STANDARD 20)

function(tessivo_bundle target name identifier)
    set(TESSIVO_BUNDLE_NAME ${name})
    set(TESSIVO_BUNDLE_ID ${identifier})
    configure_file(packaging/macos/Info.plist.in ${CMAKE_BINARY_DIR}/${target}-Info.plist @ONLY)
    set(icon ${CMAKE_SOURCE_DIR}/packaging/macos/Tessivo.icns)
    set(language_table ${CMAKE_SOURCE_DIR}/kit/resources/strings-es.json)
    target_sources(${target} PRIVATE ${icon} ${language_table})
    set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    set_source_files_properties(${language_table} PROPERTIES
        MACOSX_PACKAGE_LOCATION Resources/TessivoKit_TessivoKit.bundle)
    set_target_properties(${target} PROPERTIES MACOSX_BUNDLE ON OUTPUT_NAME ${name}
        MACOSX_BUNDLE_INFO_PLIST ${CMAKE_BINARY_DIR}/${target}-Info.plist)
    # Without its plug-in Qt answers every question for a permission with "denied".
    qt_import_plugins(${target} INCLUDE Qt6::QDarwinCameraPermissionPlugin Qt6::QDarwinMicrophonePermissionPlugin)
endfunction()
