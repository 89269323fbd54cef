# The Debian package: `cpack -G DEB` in the build folder (or `make package`) writes
# corvane_<version>_<arch>.deb from what `cmake --install` installs, under /usr.
#
# The libraries the programs link (Qt, SQLite, the C++ runtime) are found by
# dpkg-shlibdeps (package dpkg-dev) with their minimum versions; what no library
# link shows is listed by hand: Qt's own French translations, which the program loads
# at start-up.

set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_NAME "corvane")
set(CPACK_PACKAGE_VENDOR "The Corvane developers")
set(CPACK_PACKAGE_CONTACT "The Corvane developers <developpeurs@corvane.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://corvane.org/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "records of engagements for French entertainment workers")
set(CPACK_PACKAGE_DESCRIPTION
    "Corvane is for French performing-arts and audiovisual workers paid by short
engagements (intermittents du spectacle). It keeps their records in one
document, a .cv4 file saved as they type: the profile, the employers and their
contract templates, the contracts with their dates, hours and pay, and the
compensation periods. It prints or exports to PDF the profile summary and the
lists of employers and contracts, and makes backup copies of the document.
.
The program speaks French. The package also holds corvane-cli, which gives
scripts the same records.")
set(CPACK_RESOURCE_FILE_LICENSE "${CMAKE_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "misc")
set(CPACK_DEBIAN_PACKAGE_PRIORITY "optional")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n")

include(CPack)
