# Installing the game, `cmake --install <build> --prefix P`, and its Debian
# package, `cpack -G DEB` in the build folder.
#
# The program finds its delivered files by where its executable lies: in
# P/games (where Debian keeps games), with the share folder
# P/share/lantern-dovrin beside it, from which
# each start fills the user's own folder (~/.local/share/lantern-dovrin).
# So the folders here are fixed, whatever GNUInstallDirs would choose.
#
# Included at the end of the top-level CMakeLists.txt, once every target is
# known.
if(NOT DOVRIN_BUILD_GUI)
  return()  # no program, nothing to install
endif()

set(DOVRIN_SHARE_DIR share/lantern-dovrin)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# What the other folders of the build define, read from their own scopes.
macro(dovrin_definition variable folder)
  get_directory_property(${variable} DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} DEFINITION ${variable})
  if(NOT ${variable})
    message(FATAL_ERROR "Install.cmake: ${folder} defines no ${variable}")
  endif()
endmacro()
dovrin_definition(DOVRIN_TUNES resources/tunes)
dovrin_definition(WAVE_DIR resources/waves)
dovrin_definition(DOVRIN_GUIDE_FILES resources/guide)
dovrin_definition(DOVRIN_APP_ID resources/install)
dovrin_definition(DOVRIN_CONFIGURE_ENTRY resources/install)
dovrin_definition(DOVRIN_ICON_SVG resources/install)
dovrin_definition(DOVRIN_ICON_DIR resources/install)
dovrin_definition(DOVRIN_MAN_PAGE resources/install)
dovrin_definition(DOVRIN_CHANGELOG resources/install)
set(DOVRIN_INSTALL_SOURCE ${PROJECT_SOURCE_DIR}/resources/install)

# The program, and the files it keeps beside it: the tunes, the penguins'
# clucks, the guide, and the settings file and the database as delivered
# (never the build's own copies, which hold whatever was played there).
install(TARGETS dovrin RUNTIME DESTINATION games)
# A stripped install (the package's) also drops the sections nothing reads.
if(CMAKE_STRIP)
  install(CODE "
    if(CMAKE_INSTALL_DO_STRIP)
      execute_process(COMMAND \"${CMAKE_STRIP}\" --remove-section=.comment --remove-section=.note
                              \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/games/dovrin\" COMMAND_ERROR_IS_FATAL ANY)
    endif()
  ")
endif()
install(FILES ${DOVRIN_TUNES} ${WAVE_DIR}/PCluck.wav ${DOVRIN_GUIDE_FILES} DESTINATION ${DOVRIN_SHARE_DIR})
# The settings file and the database go only where the share folder has
# none. Installed for one user (--prefix ~/.local) the share folder is that
# user's own folder, and they hold the user's players, records and settings,
# which installing again must not wipe.
install(CODE "
  foreach(name dovrin.ini Lantern.mdb)
    set(installed \"\${CMAKE_INSTALL_PREFIX}/${DOVRIN_SHARE_DIR}/\${name}\")
    if(EXISTS \"\$ENV{DESTDIR}\${installed}\")
      message(STATUS \"Kept: \$ENV{DESTDIR}\${installed}\")
    else()
      file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${DOVRIN_SHARE_DIR}\" TYPE FILE
           FILES \"${DOVRIN_DELIVERED_DIR}/\${name}\")
    endif()
  endforeach()
")

# The two launchers name the installed program, so they are written when
# they are installed, for the prefix of that install: the desktop's entry in
# its menu, and LANTERN.lnx, which the program copies to the user's desktop.
# (DESTDIR, as a package build uses it, is left out of the command they run.)
set(DOVRIN_ENTRY_DIR ${CMAKE_CURRENT_BINARY_DIR}/install-entries)
install(CODE "
  set(TEMPLATE \"${DOVRIN_INSTALL_SOURCE}/app.desktop.in\")
  set(OUTPUT \"${DOVRIN_ENTRY_DIR}/${DOVRIN_APP_ID}.desktop\")
  set(EXECUTABLE \"\${CMAKE_INSTALL_PREFIX}/games/dovrin\")
  set(DOVRIN_APP_ID \"${DOVRIN_APP_ID}\")
  include(\"${DOVRIN_CONFIGURE_ENTRY}\")
  file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/share/applications\" TYPE FILE FILES \"\${OUTPUT}\")
  set(TEMPLATE \"${DOVRIN_INSTALL_SOURCE}/LANTERN.lnx.in\")
  set(OUTPUT \"${DOVRIN_ENTRY_DIR}/LANTERN.lnx\")
  include(\"${DOVRIN_CONFIGURE_ENTRY}\")
  file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${DOVRIN_SHARE_DIR}\" TYPE FILE FILES \"\${OUTPUT}\")
")

# The icon: the picture itself, and the PNGs the build drew from it.
install(FILES ${DOVRIN_ICON_SVG} DESTINATION share/icons/hicolor/scalable/apps RENAME ${DOVRIN_APP_ID}.svg)
install(DIRECTORY ${DOVRIN_ICON_DIR}/ DESTINATION share/icons/hicolor)

install(FILES ${DOVRIN_INSTALL_SOURCE}/${DOVRIN_APP_ID}.metainfo.xml DESTINATION share/metainfo)
install(FILES ${DOVRIN_MAN_PAGE} DESTINATION share/man/man6)
install(FILES ${DOVRIN_INSTALL_SOURCE}/copyright ${DOVRIN_CHANGELOG} DESTINATION share/doc/lantern-dovrin)
# What the package's checker is told to pass over, and why; only in the
# system's own prefix, where the package lays it.
install(CODE "
  if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
    file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/share/lintian/overrides\" TYPE FILE
         FILES \"${DOVRIN_INSTALL_SOURCE}/lintian-overrides\" RENAME lantern-dovrin)
  endif()
")

# The Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lantern-dovrin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Oakmere Software")
set(CPACK_PACKAGE_CONTACT "Oakmere Software <packages@oakmere.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "card game of Sevens against three computer opponents")
set(CPACK_PACKAGE_DESCRIPTION "LANTERN! Dovrin is a desktop card game of Sevens for one player against
three computer opponents, by lantern light. The holder of the Seven of
Hearts opens; after that a player lays a card that extends a suit's run up
or down from its Seven, or any Seven, and a player who can't lay a card pays
into the pot. The first player out of cards takes the pot.

A game has four hands, with money, standings and a top ten list; the players
keep their own opponents and statistics. Every move has its sound, two tunes
play through a General MIDI synthesiser, and a guide with the rule book comes
with the game.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_CONTACT}")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries it links are found by dpkg-shlibdeps; the data it reads at
# run time are named here: the card faces, the sound font for the tunes and
# the condensed sans of the players' names. The guide opens in the user's
# browser through xdg-open.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The zoom sets Qt's own scale factor through its private interface, which
# holds only for the Qt the program was built with.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "kdegames-card-data-kf5, timgm6mb-soundfont, fonts-dejavu-extra, qt6-base-abi (= ${Qt6_VERSION})")
# Wayland's own platform serves a user who asks for it (README, Wayland).
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

find_program(DOVRIN_DPKG dpkg)
if(DOVRIN_DPKG)
  execute_process(COMMAND ${DOVRIN_DPKG} --print-architecture
    OUTPUT_VARIABLE DOVRIN_DEB_ARCHITECTURE OUTPUT_STRIP_TRAILING_WHITESPACE)
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${DOVRIN_DEB_ARCHITECTURE})
  set(CPACK_DEBIAN_FILE_NAME ${CPACK_PACKAGE_NAME}_${CPACK_PACKAGE_VERSION}_${DOVRIN_DEB_ARCHITECTURE}.deb)
else()
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
endif()

include(CPack)
