# The Debian package of the whole installation: both libraries, the public headers, the CMake
# package, the pkg-config file and the tool. Built with `cpack -G DEB` in a build tree; configure
# with -DCMAKE_INSTALL_PREFIX=/usr for Debian's multiarch library folder.
set(CPACK_PACKAGE_NAME "sigdbref")
set(CPACK_PACKAGE_VENDOR "sigdbref")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "Typed reference records of the signal database (elements, links, callsign tables, queries,\n"
    "plot entries, middleware messages) encoded into the column-value and tagged property\n"
    "streams, the request interface, answer dispatch and the sigdbref inspection tool.")
string(JOIN "" CPACK_PACKAGE_DESCRIPTION ${CPACK_PACKAGE_DESCRIPTION})
set(SIGDBREF_PACKAGE_MAINTAINER "sigdbref maintainers" CACHE STRING
    "Maintainer field of the Debian package, as \"Name <address>\"")
set(CPACK_PACKAGE_CONTACT "${SIGDBREF_PACKAGE_MAINTAINER}")
set(CPACK_GENERATOR "DEB")
# Shipped binaries carry no debug information, as in any Debian package.
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "libdevel")
# The runtime dependencies (Qt Core, the C and C++ runtimes) are read from the binaries by
# dpkg-shlibdeps; without it, at least the Qt Core runtime the libraries were built against.
find_program(SIGDB_DPKG_SHLIBDEPS dpkg-shlibdeps)
if(SIGDB_DPKG_SHLIBDEPS)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
else()
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "${SIGDB_QT_CORE_DEB}")
endif()
# A shlibs file and the ldconfig trigger, as every Debian library package has.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

include(CPack)
