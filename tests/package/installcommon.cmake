# Shared by the installation tests: checks the variables a test passes, starts from an empty
# work folder and offers install_build_tree() into a fresh prefix inside it.
foreach(var BUILD_DIR WORK_DIR LIBDIR ${REQUIRED_VARS})
    if(NOT DEFINED ${var})
        message(FATAL_ERROR "${var} is not set")
    endif()
endforeach()

set(prefix "${WORK_DIR}/prefix")
file(REMOVE_RECURSE "${WORK_DIR}")

# run(<command...>): runs a command, fails the test with its output when it fails, and leaves
# its standard output in run_output.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "Failed: ${ARGN}\n${out}\n${err}")
    endif()
    message(STATUS "${out}")
    set(run_output "${out}" PARENT_SCOPE)
endfunction()

function(install_build_tree)
    run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}")
endfunction()
