# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The Debian package (CPack's DEB generator). scripts/package configures a
# Release build with ORVANTA_PACKAGE=ON and runs cpack in it.
set(ORVANTA_PACKAGE_MAINTAINER "The Orvanta developers <maintainers@orvanta.invalid>"
    CACHE STRING "Maintainer field of the Debian package")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvanta)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${ORVANTA_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Ultra HDR photos from camera RAW+JPG pairs")
# Debian's long description: continuation lines, " ." for a blank line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION [=[Ultra HDR photos from camera RAW+JPG pairs
 Orvanta turns folders of camera RAW+JPG pairs into Ultra HDR photos: JPEG
 files with an ISO 21496-1 gain map that show their full highlight range on
 HDR displays and still look right on every other screen.
 .
 The desktop application drives its own conversion engine, shows a batch
 live, and browses the history of every processed photo with thumbnails,
 camera metadata, an HDR split-compare viewer and an HDR histogram, in
 seven languages. The engine and the orvanta-uhdr codec tool also run on
 their own from the command line.]=])
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://github.com/orvanta/orvanta")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
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
include(CPack)
