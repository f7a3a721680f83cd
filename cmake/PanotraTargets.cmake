# How every room of Panotra is compiled, and the functions with which rooms declare themselves.
#
#   panotra_add_logic(NAME SOURCES … LIBRARIES …)    a static library of the logic: no exceptions, no RTTI
#   panotra_add_library(NAME SOURCES … LIBRARIES …)  a static library of the simulator
#   panotra_add_test(NAME SOURCES … LIBRARIES …)     a GoogleTest program; each of its tests is a test of ctest

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Debug, Release, RelWithDebInfo or MinSizeRel" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

# Assertions are part of how the simulator keeps its promises, and cost nothing that anybody would notice.
string(REPLACE "-DNDEBUG" "" CMAKE_CXX_FLAGS_RELWITHDEBINFO "${CMAKE_CXX_FLAGS_RELWITHDEBINFO}")

option(PANOTRA_SANITIZE "Check addresses and undefined behaviour at run time" OFF)
set(PANOTRA_TEST_PREFIX "") # before the name of every test, so that one run over two builds tells them apart
if(PANOTRA_SANITIZE)
    # Enough to find what there is to find, in half the time that optimising it takes to compile.
    string(REPLACE "-O2 -g" "-O1 -g1" CMAKE_CXX_FLAGS_RELWITHDEBINFO "${CMAKE_CXX_FLAGS_RELWITHDEBINFO}")
    set(PANOTRA_TEST_PREFIX "sanitized/")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

add_library(panotra-warnings INTERFACE)
target_compile_options(panotra-warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

function(panotra_declare_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${arg_LIBRARIES} PRIVATE panotra-warnings)
endfunction()

# The JSON library is most of what a file of the simulator costs to compile.
function(panotra_add_library name)
    panotra_declare_library(${name} ${ARGN})
    target_precompile_headers(${name} PRIVATE <nlohmann/json.hpp>)
endfunction()

function(panotra_add_logic name)
    panotra_declare_library(${name} ${ARGN})
    target_compile_options(${name} PRIVATE -fno-exceptions -fno-rtti)
endfunction()

function(panotra_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    find_package(GTest REQUIRED)
    include(GoogleTest)
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <nlohmann/json.hpp>)
    # A test's own code is compiled once and run once: optimising it thoroughly takes longer than it ever saves.
    target_compile_options(${name} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O$<NOT:$<BOOL:${PANOTRA_SANITIZE}>>;-g1>)
    # gcc 12 takes the concatenation of strings for an overrun where the string's header is precompiled.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-restrict -Wno-stringop-overflow>)
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} panotra-warnings GTest::gtest_main GTest::gmock)
    # Whatever a library keeps in the home folder, fontconfig for one, stays out of the user's.
    gtest_discover_tests(${name} TEST_PREFIX "${PANOTRA_TEST_PREFIX}"
        PROPERTIES TIMEOUT 120 ENVIRONMENT "HOME=${CMAKE_BINARY_DIR}/test-home")
endfunction()
