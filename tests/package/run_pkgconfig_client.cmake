# Installs into a temporary prefix and builds the consumer's one-file client with a plain
# Makefile whose flags come from pkg-config, then runs it.
set(REQUIRED_VARS MAKEFILE CLIENT_SOURCE CXX VERSION)
include("${CMAKE_CURRENT_LIST_DIR}/installcommon.cmake")
install_build_tree()

set(client "${WORK_DIR}/client")
file(COPY "${MAKEFILE}" "${CLIENT_SOURCE}" DESTINATION "${client}")
set(pc_path "PKG_CONFIG_PATH=${prefix}/${LIBDIR}/pkgconfig")
run("${CMAKE_COMMAND}" -E env "${pc_path}" pkg-config --exact-version=${VERSION} sigdbref)
run("${CMAKE_COMMAND}" -E env "${pc_path}" make -C "${client}" "CXX=${CXX}")
run("${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${prefix}/${LIBDIR}" "${client}/client")
