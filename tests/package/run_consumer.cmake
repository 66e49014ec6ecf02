# Installs the built libraries into a temporary prefix, then configures, builds and runs the
# consumer project against that prefix alone.
set(REQUIRED_VARS SOURCE_DIR GENERATOR)
include("${CMAKE_CURRENT_LIST_DIR}/installcommon.cmake")
install_build_tree()

set(consumer_build "${WORK_DIR}/build")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${consumer_build}" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}" -DCMAKE_BUILD_TYPE=Release)
run("${CMAKE_COMMAND}" --build "${consumer_build}")
run("${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${prefix}/${LIBDIR}" "${consumer_build}/consumer")
