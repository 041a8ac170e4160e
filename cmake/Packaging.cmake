# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The Debian package (CPack's DEB generator). scripts/package configures a
# Release build with ORVANTA_PACKAGE=ON and runs cpack in it.
set(ORVANTA_PACKAGE_MAINTAINER "The Orvanta developers <maintainers@orvanta.invalid>"
    CACHE STRING "Maintainer field of the Debian package")

set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_PACKAGE_NAME orvanta)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${ORVANTA_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Ultra HDR photos from camera RAW+JPG pairs")
# The long description; CPack puts the summary above it and formats it the
# way Debian's control file wants (indented lines, " ." between paragraphs).
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION [=[Orvanta turns folders of camera RAW+JPG pairs into Ultra HDR photos: JPEG
files with an ISO 21496-1 gain map that show their full highlight range on
HDR displays and still look right on every other screen.

The desktop application drives its own conversion engine, shows a batch
live, and browses the history of every processed photo with thumbnails,
camera metadata, an HDR split-compare viewer and an HDR histogram, in
seven languages. The engine and the orvanta-uhdr codec tool also run on
their own from the command line.
]=])
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://github.com/orvanta/orvanta")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Library dependencies come from what the binaries link (dpkg-shlibdeps).
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)
# What no binary links but the program loads or runs: the Haar cascade of the
# engine's face detection, xdg-open for web pages and folders, the emoji of
# the console, the icon theme the icons install into.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "opencv-data, xdg-utils, fonts-noto-color-emoji, hicolor-icon-theme")
# Wanted on a normal desktop, not needed to run: the Wayland platform plugin
# (X11's is part of libqt6gui6), TIFF and WebP readers, Chinese and Japanese
# fonts, the "complete" sound, exiftool for the environment check.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "qt6-wayland, qt6-image-formats-plugins, fonts-noto-cjk, sound-theme-freedesktop, libimage-exiftool-perl")
set(CPACK_STRIP_FILES ON)

# Debian wants the licence and a changelog next to the documentation.
set(ORVANTA_RELEASE_DATE "Wed, 25 Nov 2026 00:00:00 +0000"
    CACHE STRING "Date of this release, as in a Debian changelog")
include(GNUInstallDirs)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.Debian.in
               ${CMAKE_BINARY_DIR}/packaging/changelog.Debian @ONLY)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/packaging/changelog.Debian.gz
  COMMAND gzip -9 -n -f -k ${CMAKE_BINARY_DIR}/packaging/changelog.Debian
  DEPENDS ${CMAKE_BINARY_DIR}/packaging/changelog.Debian)
add_custom_target(orvanta_changelog ALL DEPENDS ${CMAKE_BINARY_DIR}/packaging/changelog.Debian.gz)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/copyright ${CMAKE_BINARY_DIR}/packaging/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/orvanta)
include(CPack)
