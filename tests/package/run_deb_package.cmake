# Builds the Debian package of the build tree and checks that it holds everything an
# installation has and declares the Qt Core runtime it needs.
set(REQUIRED_VARS CPACK_COMMAND QT_CORE_DEB_PACKAGE)
include("${CMAKE_CURRENT_LIST_DIR}/installcommon.cmake")

run("${CPACK_COMMAND}" -G DEB --config "${BUILD_DIR}/CPackConfig.cmake" -B "${WORK_DIR}")
file(GLOB deb "${WORK_DIR}/*.deb")
list(LENGTH deb count)
if(NOT count EQUAL 1)
    message(FATAL_ERROR "Expected one package in ${WORK_DIR}, found: ${deb}")
endif()

run(dpkg-deb --contents "${deb}")
set(contents "${run_output}")
foreach(expected
        "/usr/${LIBDIR}/libsigdbcore.so.0"
        "/usr/${LIBDIR}/libsigdbref.so.0"
        "/usr/include/sigdbref/sigdbref.h"
        "/usr/include/sigdbref/client/refinterface.h"
        "/usr/${LIBDIR}/cmake/SigdbRef/SigdbRefConfig.cmake"
        "/usr/${LIBDIR}/cmake/SigdbRef/SigdbRefTargets.cmake"
        "/usr/${LIBDIR}/pkgconfig/sigdbref.pc"
        "/usr/bin/sigdbref")
    string(FIND "${contents}" ".${expected}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "The package lacks ${expected}:\n${contents}")
    endif()
endforeach()

run(dpkg-deb --field "${deb}" Depends)
if(NOT run_output MATCHES "(^|, )${QT_CORE_DEB_PACKAGE} ")
    message(FATAL_ERROR "The package does not depend on ${QT_CORE_DEB_PACKAGE}: ${run_output}")
endif()
