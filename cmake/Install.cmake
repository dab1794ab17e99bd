# What lands where, and the Debian package, which tools/package makes.
include(GNUInstallDirs)

install(TARGETS tessivo tessivo-demo tessivo-probe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES kit/resources/strings-es.json
    DESTINATION ${CMAKE_INSTALL_DATADIR}/tessivo/TessivoKit_TessivoKit.bundle)
# The Macs that `tessivo-demo` simulates.
install(DIRECTORY platform/simulated/machines/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tessivo/machines
    FILES_MATCHING PATTERN "*.json")
install(FILES packaging/tessivo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/example.tessivo.Tessivo.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES app/resources/tessivo.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(documents ${CMAKE_INSTALL_DATADIR}/doc/tessivo)
install(FILES packaging/debian/copyright DESTINATION ${documents})
# Debian wants what is read by people packed, and without the time at which it was.
find_program(GZIP gzip REQUIRED)
function(install_packed source name destination)
    add_custom_command(OUTPUT packed/${name}.gz VERBATIM
        COMMAND sh -c "mkdir -p packed && '${GZIP}' -9nc \"$1\" > \"packed/$2.gz\"" pack ${CMAKE_SOURCE_DIR}/${source} ${name}
        DEPENDS ${source})
    add_custom_target(packed_${name} ALL DEPENDS packed/${name}.gz)
    install(FILES ${CMAKE_BINARY_DIR}/packed/${name}.gz DESTINATION ${destination})
endfunction()
install_packed(packaging/debian/changelog changelog ${documents})
foreach(program tessivo tessivo-demo tessivo-probe)
    install_packed(packaging/man/${program}.1 ${program}.1 ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME tessivo)
set(CPACK_PACKAGE_CONTACT "Tessivo <support@tessivo.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Test a used computer and report its condition honestly")
set(CPACK_PACKAGE_DESCRIPTION
"Tessivo walks a seller through keyboard, trackpad, display, sound, cameras,
ports, Ethernet, storage and battery, reads the machine's identity, and turns
what was measured and answered into a condition report: on screen, as text,
PDF, print or a file that another computer can read.

It tests, reads and reports; it never erases or changes the machine.")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://tessivo.example")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, fonts-inter, fonts-jetbrains-mono, fonts-dejavu-core, fonts-symbola")
# In a Wayland session Qt goes by X without it.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
