# The disk image: Tessivo.app alone, with the command-line twin inside.
install(TARGETS tessivo BUNDLE DESTINATION .)
install(TARGETS tessivo-probe RUNTIME DESTINATION Tessivo.app/Contents/MacOS)
install(CODE "execute_process(COMMAND \"${CMAKE_SOURCE_DIR}/packaging/macos/finish\"
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/Tessivo.app\" COMMAND_ERROR_IS_FATAL ANY)")

set(CPACK_GENERATOR DragNDrop)
set(CPACK_PACKAGE_NAME Tessivo)
set(CPACK_PACKAGE_FILE_NAME "Tessivo-${PROJECT_VERSION}")
set(CPACK_DMG_VOLUME_NAME Tessivo)
include(CPack)
