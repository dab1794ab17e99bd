# What lands where, and the Debian package, which tools/package makes.
include(GNUInstallDirs)

install(TARGETS tessivo tessivo-demo tessivo-probe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES kit/resources/strings-es.json
    DESTINATION ${CMAKE_INSTALL_DATADIR}/tessivo/TessivoKit_TessivoKit.bundle)
# The Macs that `tessivo-demo` simulates.
install(DIRECTORY platform/simulated/machines/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tessivo/machines
    FILES_MATCHING PATTERN "*.json")
install(FILES packaging/tessivo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tessivo.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES app/resources/tessivo.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessivo)
set(CPACK_PACKAGE_CONTACT "Tessivo <support@tessivo.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Test a used computer and report its condition honestly")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, fonts-inter, fonts-jetbrains-mono, fonts-dejavu-core, fonts-symbola")
# In a Wayland session Qt goes by X without it.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
