# Installs into a temporary prefix, moves the whole prefix elsewhere and runs the installed
# tool from there with no library search path set: it must find its libraries by itself.
set(REQUIRED_VARS VERSION)
include("${CMAKE_CURRENT_LIST_DIR}/installcommon.cmake")
install_build_tree()

set(moved "${WORK_DIR}/moved")
file(RENAME "${prefix}" "${moved}")
set(tool "${moved}/bin/sigdbref")

run("${CMAKE_COMMAND}" -E env --unset=LD_LIBRARY_PATH "${tool}" --version)
if(NOT run_output STREQUAL "sigdbref ${VERSION}\n")
    message(FATAL_ERROR "Unexpected version output: '${run_output}'")
endif()
run("${CMAKE_COMMAND}" -E env --unset=LD_LIBRARY_PATH "${tool}" demo)
if(NOT run_output MATCHES "client sends VersionInfo")
    message(FATAL_ERROR "The demo did not run its session:\n${run_output}")
endif()
