# What is installed, and the Debian packages that are made of it.

include(GNUInstallDirs)
set(VANTORA_APPLICATION_ID example.vantora_air.vantora)
set(packaging ${CMAKE_CURRENT_SOURCE_DIR}/packaging)

set_target_properties(vantora PROPERTIES
  MACOSX_BUNDLE ON
  MACOSX_BUNDLE_INFO_PLIST ${packaging}/macos/Info.plist.in
  MACOSX_BUNDLE_BUNDLE_NAME Vantora
  MACOSX_BUNDLE_GUI_IDENTIFIER ${VANTORA_APPLICATION_ID}
  MACOSX_BUNDLE_ICON_FILE Vantora.icns
  MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
  MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})
if(APPLE)
  target_sources(vantora PRIVATE ${packaging}/macos/Vantora.icns)
  set_source_files_properties(${packaging}/macos/Vantora.icns TARGET_DIRECTORY vantora
    PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
endif()

install(TARGETS vantora COMPONENT vantora
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} BUNDLE DESTINATION .)
install(TARGETS vantora-sample-server COMPONENT vantora-sample-server
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(UNIX AND NOT APPLE)
  install(FILES ${packaging}/${VANTORA_APPLICATION_ID}.desktop COMPONENT vantora
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${packaging}/${VANTORA_APPLICATION_ID}.metainfo.xml COMPONENT vantora
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(DIRECTORY ${packaging}/icons/hicolor COMPONENT vantora
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
endif()
foreach(program vantora vantora-sample-server)
  install(FILES THIRD_PARTY.md COMPONENT ${program}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${program})
  install(DIRECTORY licences COMPONENT ${program}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${program})
endforeach()

# Only these programs are packaged, so nothing else has to be built for it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CMAKE_SKIP_PACKAGE_ALL_DEPENDENCY ON)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL vantora vantora-sample-server)
set(CPACK_PACKAGE_VENDOR Vantora)
set(CPACK_PACKAGE_CONTACT "Vantora <destek@vantora-air.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${VANTORA_WEB_SITE})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENT_VANTORA_DESCRIPTION
  "find the cheapest flights of the airline Vantora
Shows the lowest fare of each day around a date as a chart, and the flights of
a day as cards to sort and filter. Knows the live status of flights, and has a
guide to each city. All its texts are Turkish.")
set(CPACK_COMPONENT_VANTORA-SAMPLE-SERVER_DESCRIPTION
  "stand in for the server of Vantora with invented fares
Answers like the airline's server does, on the loopback interface only, for
development and demonstrations without a network.")
set(CPACK_DEBIAN_VANTORA_PACKAGE_NAME vantora)
set(CPACK_DEBIAN_VANTORA_PACKAGE_SECTION net)
set(CPACK_DEBIAN_VANTORA-SAMPLE-SERVER_PACKAGE_NAME vantora-sample-server)
set(CPACK_DEBIAN_VANTORA-SAMPLE-SERVER_PACKAGE_SECTION devel)
# Loaded at run time, where no tool sees them: QML modules, the certificates of the system, time
# zones, what opens a link. The platform plugin for X11 comes with Qt's libraries.
string(JOIN ", " CPACK_DEBIAN_VANTORA_PACKAGE_DEPENDS
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript
  qml6-module-qtquick qml6-module-qtquick-layouts qml6-module-qtquick-templates
  qml6-module-qtquick-window
  libgl1-mesa-dri qt6-wayland ca-certificates tzdata xdg-utils)
set(CPACK_DEBIAN_VANTORA_PACKAGE_SUGGESTS vantora-sample-server)
set(CPACK_DEBIAN_VANTORA-SAMPLE-SERVER_PACKAGE_DEPENDS tzdata)

# What Debian wants compressed, or under a name of the package.
function(vantora_install_compressed program source folder name)
  find_program(GZIP_PROGRAM gzip REQUIRED)
  set(result ${CMAKE_BINARY_DIR}/packaging/${program}/${name}.gz)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packaging/${program})
  execute_process(COMMAND ${GZIP_PROGRAM} -9nc ${packaging}/debian/${source} OUTPUT_FILE ${result})
  install(FILES ${result} COMPONENT ${program} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder})
endfunction()
if(EXISTS /etc/debian_version)
  foreach(program vantora vantora-sample-server)
    vantora_install_compressed(${program} changelog doc/${program} changelog)
    vantora_install_compressed(${program} ${program}.1 man/man1 ${program}.1)
    install(FILES ${packaging}/debian/copyright COMPONENT ${program}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${program})
  endforeach()
endif()
include(CPack)
