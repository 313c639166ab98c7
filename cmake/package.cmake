# The Debian package; package.sh builds and checks it.
install_compressed(${packaging}/changelog changelog.Debian ${CMAKE_INSTALL_DATADIR}/doc/pellmore)
install(FILES ${packaging}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/pellmore)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pellmore)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Pellmore developers <developers@pellmore.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# What is packed is readable by all, whatever the umask of who builds it.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# What is linked is found by itself. Loaded by name are the plug-in that draws the icons, and
# GStreamer's plug-ins, without which playing is refused.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libqt6svg6 (>= 6.4), gstreamer1.0-plugins-base, gstreamer1.0-plugins-good")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "name, sort and tag the MP3 files of a collection")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Pellmore puts a personal collection of MP3 files in order. Files are gathered
in one list, and the program does three kinds of work on them:

 * it works out clean file names, from ID3 tags or from the old names;
 * it copies, moves or renames the files into folders per genre, letter and
   artist;
 * it shows, edits and saves ID3v1 and ID3v2 tags, of one file or of all
   selected files.

A second window turns the text of an album description into file names and
tags. Files can be renamed from the command line, too.")
include(CPack)
