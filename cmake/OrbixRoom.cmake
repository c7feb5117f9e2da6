# One include root, the repository: #include "event/event_store.h".

# Flags that every target of this tree is compiled with. The position arithmetic is literal, so
# the compiler must not fuse a multiplication and an addition into one rounding.
add_library(orbix_flags INTERFACE)
target_compile_options(orbix_flags INTERFACE -Wall -Wextra -Wconversion -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # A false alarm of this compiler where an optimised std::string is put together.
    target_compile_options(orbix_flags INTERFACE -Wno-restrict)
endif()
if(ORBIX_SANITIZE)
    target_compile_options(orbix_flags INTERFACE -fsanitize=${ORBIX_SANITIZE}
                                                 -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(orbix_flags INTERFACE -fsanitize=${ORBIX_SANITIZE})
endif()
if(ORBIX_BUILD_FUZZ)
    # Coverage of every room; only the fuzzers themselves link the driver.
    target_compile_options(orbix_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# orbix_room(NAME FOLDER SOURCES ... HEADERS ... USES ...)
# A static library for one subsystem, its public headers as a verifiable header set. INTERNAL: for
# the programs alone, so that its headers are not installed.
function(orbix_room name folder)
    cmake_parse_arguments(ROOM "INTERNAL" "" "SOURCES;HEADERS;USES" ${ARGN})
    add_library(${name} STATIC)
    target_sources(${name} PRIVATE ${ROOM_SOURCES})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}
                                  FILES ${ROOM_HEADERS})
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    target_link_libraries(${name} PUBLIC ${ROOM_USES} PRIVATE $<BUILD_INTERFACE:orbix_flags>)
    # The shared library's interface is made of these headers.
    if(ROOM_INTERNAL)
        return()
    endif()
    foreach(header IN LISTS ROOM_HEADERS)
        cmake_path(GET header PARENT_PATH subfolder)
        install(FILES ${header}
                DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orbix/${folder}/${subfolder})
    endforeach()
endfunction()

# orbix_test(NAME LABELS "logic" SOURCES ... USES ...)
# One GoogleTest executable, registered case by case with ctest.
function(orbix_test name)
    cmake_parse_arguments(TEST "" "LABELS" "SOURCES;USES;ENVIRONMENT" ${ARGN})
    add_executable(${name} ${TEST_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${TEST_USES} orbix_flags GTest::gtest_main GTest::gmock)
    target_compile_definitions(${name}
        PRIVATE ORBIX_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
                ORBIX_EXAMPLES="${PROJECT_SOURCE_DIR}/examples")
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES
                         LABELS "${TEST_LABELS}" ENVIRONMENT "${TEST_ENVIRONMENT}")
endfunction()
