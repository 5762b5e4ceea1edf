# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT

# What is installed, and the Debian package made of it (`cpack -G DEB` in the build folder).
# Components that are loaded at run time install themselves where they are built.

foreach(program hcwordlib hcwordlib-admin)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()

install(FILES packaging/hcwordlib.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.hcwordlib.hcwordlib.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES data/artwork/icons/hcwordlib.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES data/sample/sample.outline DESTINATION ${CMAKE_INSTALL_DATADIR}/hcwordlib)
file(GLOB readmes README*.md)
install(FILES ${readmes} DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hcwordlib)
set(CPACK_PACKAGE_VENDOR "The HCWordLib authors")
set(CPACK_PACKAGE_CONTACT "The HCWordLib authors <hcwordlib@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "maintain a word-and-phrase library for process planning")
set(CPACK_PACKAGE_DESCRIPTION
"Keeps the words and phrases that process planners use, in categories and as a
tree of any depth. Every change is stored at once in a database reached through
ODBC: an embedded SQLite file, or a PostgreSQL or MariaDB server shared by a team.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
# The linked libraries are found by dpkg-shlibdeps; named here is what is loaded at run time.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, unixodbc, libsqliteodbc")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "odbc-postgresql, odbc-mariadb, qt6-translations-l10n, fonts-noto-cjk, fonts-arphic-ukai, fcitx5-frontend-qt6, qt6-wayland")
include(CPack)
