# Helpers shared by the source folders: every subsystem folder adds its sources and public
# headers to one of the two libraries with sigdb_add_sources(), and every test folder builds
# one GoogleTest executable with sigdb_add_test().

# Compiler settings of our own targets (never forced onto consumers).
function(sigdb_target_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
    if(SIGDBREF_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    # Qt's foreach/emit/signals keywords are not used by this code base.
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
endfunction()

# sigdb_add_sources(<library> HEADERS <public headers...> SOURCES <sources...>)
# Adds the files of the current source folder to <library>, installs its public headers under
# include/sigdbref/<folder>/ and records them for the generated umbrella header.
function(sigdb_add_sources library)
    cmake_parse_arguments(ARG "" "" "HEADERS;SOURCES;PRIVATE_HEADERS" ${ARGN})
    file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}/src" "${CMAKE_CURRENT_SOURCE_DIR}")
    target_sources(${library} PRIVATE ${ARG_SOURCES} ${ARG_HEADERS} ${ARG_PRIVATE_HEADERS})
    install(FILES ${ARG_HEADERS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/sigdbref/${folder}")
    foreach(header IN LISTS ARG_HEADERS)
        set_property(GLOBAL APPEND PROPERTY SIGDB_PUBLIC_HEADERS "${folder}/${header}")
    endforeach()
endfunction()

# sigdb_add_test(<name> <sources...> [LIBRARIES <extra libraries...>]
#                [DISCOVERY_PROPERTIES <test properties of every discovered test...>])
function(sigdb_add_test name)
    cmake_parse_arguments(ARG "" "" "LIBRARIES;DISCOVERY_PROPERTIES" ${ARGN})
    add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE SigdbRef::sigdbref GTest::gtest GTest::gtest_main
                          sigdb_testsupport ${ARG_LIBRARIES})
    sigdb_target_warnings(${name})
    if(ARG_DISCOVERY_PROPERTIES)
        gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ${ARG_DISCOVERY_PROPERTIES})
    else()
        gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
    endif()
endfunction()
