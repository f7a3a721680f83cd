# Objective-C++, for the tests' home screen of Objective-C objects.
#
#   panotra_find_objective_sources(VARIABLE NAME SOURCE...)  what compiles the sources together, in files called NAME
#   panotra_compile_objective_cxx(TARGET)                    compiles a target's Objective-C++ as GNUstep asks
#
# It is gcc's: GNUstep's Foundation runs on gcc's runtime, whose exceptions pass C++ only in what gcc compiled.
find_path(GNUSTEP_INCLUDE Foundation/Foundation.h PATHS /usr/include/GNUstep)
find_library(GNUSTEP_BASE gnustep-base)
find_library(BLOCKS_RUNTIME BlocksRuntime)
if(NOT GNUSTEP_INCLUDE OR NOT GNUSTEP_BASE OR NOT BLOCKS_RUNTIME)
    message(FATAL_ERROR "Objective-C or blocks are missing: scripts/install-dependencies test")
endif()
find_program(CMAKE_OBJCXX_COMPILER g++ REQUIRED)
set(CMAKE_OBJCXX_FLAGS_RELWITHDEBINFO "${CMAKE_CXX_FLAGS_RELWITHDEBINFO}")
# It also takes over what C++ calls a precompiled header; that stays as the compiler of C++ has it.
set(extension_of_precompiled "${CMAKE_PCH_EXTENSION}")
enable_language(OBJCXX)
set(CMAKE_PCH_EXTENSION "${extension_of_precompiled}")

# CMake puts sources together only where they are C++, and this saves as much here.
function(panotra_find_objective_sources variable name)
    set(together "")
    foreach(source IN LISTS ARGN)
        cmake_path(ABSOLUTE_PATH source)
        string(APPEND together "#include \"${source}\"\n")
    endforeach()
    file(CONFIGURE OUTPUT "${name}.mm" CONTENT "${together}" @ONLY)
    set(${variable} "${CMAKE_CURRENT_BINARY_DIR}/${name}.mm" PARENT_SCOPE)
endfunction()

# A method is called with its own type, which is not that of all methods, and need not use what it is sent. gcc takes
# sources that are compiled together for headers.
function(panotra_compile_objective_cxx name)
    foreach(option IN ITEMS -std=c++20 -fobjc-exceptions -fconstant-string-class=NSConstantString -fno-strict-aliasing
            -Wno-cast-function-type -Wno-unused-parameter -Wno-subobject-linkage)
        target_compile_options(${name} PRIVATE $<$<COMPILE_LANGUAGE:OBJCXX>:${option}>)
    endforeach()
endfunction()
