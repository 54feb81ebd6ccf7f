# What an installation consists of, and the Debian package made from it (see ./package).
include(GNUInstallDirs)

set(ORVANE_APP_ID com.quorvex.Orvane)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(rendered ${PROJECT_BINARY_DIR}/packaging)

install(TARGETS orvane RUNTIME)

configure_file(${packaging}/${ORVANE_APP_ID}.service.in ${rendered}/${ORVANE_APP_ID}.service @ONLY)
install(FILES ${packaging}/${ORVANE_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${rendered}/${ORVANE_APP_ID}.service DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
install(FILES ${packaging}/${ORVANE_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging}/autostart/${ORVANE_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_FULL_SYSCONFDIR}/xdg/autostart)

include(${CMAKE_CURRENT_LIST_DIR}/packaging/Icons.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/packaging/Documents.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/packaging/DebianPackage.cmake)
