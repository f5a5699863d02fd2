# Where the program and what it brings along are installed.
include(GNUInstallDirs)

install(TARGETS vellumcraft RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vellumcraft OPTIONAL)
install(FILES packaging/vellumcraft.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES src/widgets/icons/vellumcraft.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
