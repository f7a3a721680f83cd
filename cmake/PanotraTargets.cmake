# How every room of Panotra is compiled, and the functions with which rooms declare themselves.
#
#   panotra_add_logic(NAME SOURCES … LIBRARIES …)    a static library of the logic: no exceptions, no RTTI
#   panotra_add_library(NAME SOURCES … LIBRARIES …)  a static library of the simulator
#   panotra_add_test(NAME SOURCES … LIBRARIES …)     a GoogleTest program, which is a test of ctest
#   panotra_find_scenarios(VARIABLE)                 every scenario that is a test, an example or a picture, or of an odd process

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

# Lines for backtraces, in a version that valgrind 3.19 reads, and no variables: those are for the preset `debug`.
# Assertions stay: they are part of how the simulator keeps its promises, and cost nothing that anybody would notice.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -gdwarf-4")

option(PANOTRA_SANITIZE "Check addresses and undefined behaviour at run time" OFF)
set(PANOTRA_TEST_PREFIX "") # before the name of every test, so that one run over two builds tells them apart
if(PANOTRA_SANITIZE)
    set(PANOTRA_TEST_PREFIX "sanitized/")
    # Enough optimisation to find what there is to find, in half the time.
    set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1")
    # A method is called by what its type looks like, as the host's runtime does: rectangles have a name on either side
    # of the seam.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize=function -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

add_library(panotra-warnings INTERFACE)
target_compile_options(panotra-warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# A class of one source may hold what only that source knows. gcc takes sources that are compiled together for headers.
target_compile_options(panotra-warnings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)

function(panotra_declare_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${arg_LIBRARIES} PRIVATE panotra-warnings)
endfunction()

# panotra_read_once(TARGET READER HEADER...): the headers are read for the first target that names this READER, all others
# take what it read.
#
# What was read before counts as nobody's any more: clang hears that libstdc++ finds its own stable sort out of date, and
# gcc 12 takes a concatenation of strings for an overrun. Each of the two still listens where the other does not.
function(panotra_read_once name reader)
    get_property(first GLOBAL PROPERTY PANOTRA_READER_${reader})
    if(first)
        target_precompile_headers(${name} REUSE_FROM ${first})
    else()
        target_precompile_headers(${name} PRIVATE ${ARGN})
        set_property(GLOBAL PROPERTY PANOTRA_READER_${reader} ${name})
    endif()
    target_compile_options(${name} PRIVATE
        $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
        $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-restrict -Wno-stringop-overflow>)
endfunction()

# The JSON library is most of what a file of the simulator costs to compile. The drawing libraries ask for threads; what
# is read once is read under the same macros.
function(panotra_add_library name)
    panotra_declare_library(${name} ${ARGN})
    target_compile_options(${name} PRIVATE -pthread)
    panotra_read_once(${name} LIBRARIES <nlohmann/json.hpp>)
endfunction()

function(panotra_add_logic name)
    panotra_declare_library(${name} ${ARGN})
    target_compile_options(${name} PRIVATE -fno-exceptions -fno-rtti)
endfunction()

# Test code runs once: optimising it takes longer than it ever saves.
function(panotra_compile_as_test name)
    find_package(GTest REQUIRED)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_compile_options(${name} PRIVATE -O0 -pthread)
    target_link_libraries(${name} PRIVATE panotra-warnings GTest::gtest GTest::gmock)
    panotra_read_once(${name} TESTS <gtest/gtest.h> <gmock/gmock.h> <nlohmann/json.hpp>)
endfunction()

# What `make quick` builds before it runs the tests whose names begin with unit_, scenario/, example/ or systems/.
add_custom_target(panotra_quick)

function(panotra_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    panotra_compile_as_test(${name})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gtest_main)
    # One process for all: starting one takes longer than most tests do. Whatever a library keeps in the home folder,
    # fontconfig for one, stays out of the user's.
    add_test(NAME "${PANOTRA_TEST_PREFIX}${name}" COMMAND ${name} --gtest_brief=1)
    set_tests_properties("${PANOTRA_TEST_PREFIX}${name}" PROPERTIES
        TIMEOUT 300 ENVIRONMENT "HOME=${CMAKE_BINARY_DIR}/test-home")
    if(name MATCHES "^unit_")
        add_dependencies(panotra_quick ${name})
    endif()
endfunction()

function(panotra_find_scenarios variable)
    file(GLOB found CONFIGURE_DEPENDS
        "${PROJECT_SOURCE_DIR}/tests/scenarios/*/*/scenario"
        "${PROJECT_SOURCE_DIR}/tests/pictures/*/scenario"
        "${PROJECT_SOURCE_DIR}/examples/*.scenario"
        "${PROJECT_SOURCE_DIR}/tests/systems/processes/*.scenario")
    set(${variable} ${found} PARENT_SCOPE)
endfunction()
