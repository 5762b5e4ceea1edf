# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT

# What is installed, and the Debian package made of it (`cpack -G DEB` in the build folder).
# Components that are loaded at run time install themselves where they are built.

install(TARGETS hcwordlib hcwordlib-admin RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES packaging/hcwordlib.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.hcwordlib.hcwordlib.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES data/artwork/icons/hcwordlib.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES packaging/icons/${size}.png RENAME hcwordlib.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES data/sample/sample.outline DESTINATION ${CMAKE_INSTALL_DATADIR}/hcwordlib)
install(FILES packaging/hcwordlib-admin.bash RENAME hcwordlib-admin
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES README.md README.zh.md CHANGELOG.md packaging/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The manual pages are made of the programs' help texts; pages and changelog are installed compressed.
find_program(AWK NAMES awk mawk gawk REQUIRED)
find_program(GZIP gzip REQUIRED)
set(pages)
function(add_manual_page help page folder)
  set(output ${CMAKE_BINARY_DIR}/manual/${folder}/${page}.1.gz)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/manual/${folder}
    COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C ${AWK} -v version=${PROJECT_VERSION}
            -f ${CMAKE_SOURCE_DIR}/packaging/man_page.awk ${CMAKE_SOURCE_DIR}/data/help/${help}.txt
            | ${GZIP} -9n > ${output}
    DEPENDS packaging/man_page.awk data/help/${help}.txt VERBATIM)
  install(FILES ${output} DESTINATION ${CMAKE_INSTALL_MANDIR}/${folder})
  set(pages ${pages} ${output} PARENT_SCOPE)
endfunction()
foreach(program hcwordlib hcwordlib-admin)
  add_manual_page(${program}.en ${program} man1)
  add_manual_page(${program} ${program} zh_CN/man1)
endforeach()
set(changelog ${CMAKE_BINARY_DIR}/changelog.gz)
add_custom_command(OUTPUT ${changelog}
  COMMAND ${GZIP} -9nc ${CMAKE_SOURCE_DIR}/packaging/changelog > ${changelog}
  DEPENDS packaging/changelog VERBATIM)
install(FILES ${changelog} DESTINATION ${CMAKE_INSTALL_DOCDIR})
add_custom_target(documents ALL DEPENDS ${pages} ${changelog})

file(STRINGS packaging/changelog released LIMIT_COUNT 1)
if(NOT released MATCHES "^hcwordlib \\(${PROJECT_VERSION}\\)")
  message(FATAL_ERROR "packaging/changelog does not begin with version ${PROJECT_VERSION}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hcwordlib)
set(CPACK_PACKAGE_VENDOR "The HCWordLib authors")
set(CPACK_PACKAGE_CONTACT "The HCWordLib authors <hcwordlib@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "maintain a word-and-phrase library for process planning")
set(CPACK_PACKAGE_DESCRIPTION
"Keeps the words and phrases that process planners use, in categories and as
a tree of any depth. Every change is stored at once in a database reached
through ODBC: an embedded SQLite file, or a PostgreSQL or MariaDB server
shared by a team. The user interface is Chinese.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/permissions.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The linked libraries are found by dpkg-shlibdeps; named here is what is loaded at run time: the plug-in
# for the icons, which left libqt6svg6 after Debian 12, the driver of a library for one user, Qt's own texts
# in Chinese, the characters.
# ICU comes with Qt, whichever of its versions that has.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qt6-svg-plugins | libqt6svg6 (<< 6.7), libsqliteodbc, odbcinst, qt6-translations-l10n, fonts-noto-cjk | fonts-wqy-microhei | fonts-wqy-zenhei")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "fonts-arphic-ukai, qt6-wayland, odbc-postgresql, odbc-mariadb, fcitx5-frontend-qt6")
include(CPack)
