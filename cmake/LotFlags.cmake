# SPDX-License-Identifier: GPL-3.0-or-later
# How everything in the tree is compiled.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

find_program(LOTMASTER_CCACHE ccache)
if(LOTMASTER_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${LOTMASTER_CCACHE}")
endif()

# An appraisal must come out the same on every machine, to the last bit: a covenant or a limit is tested exactly.
# So no fused multiply-add, and no licence for the compiler to reorder sums.
if("${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_DEBUG} ${CMAKE_CXX_FLAGS_RELEASE}" MATCHES "-Ofast|-ffast-math|-funsafe-math|-fassociative-math")
    message(FATAL_ERROR "Lotmaster's figures must not depend on the machine: build without fast-math")
endif()
add_compile_options(-ffp-contract=off)

add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
    -Wcast-qual -Wcast-align -Wformat=2 -Wextra-semi -Wredundant-decls)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 finds overlapping copies in `"text" + std::string` where there are none.
    add_compile_options(-Wmissing-declarations -Wlogical-op -Wduplicated-cond -Wno-restrict)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # clang counts an int index among its conversions; the field counts months in int, as g++ allows.
    add_compile_options(-Wmissing-prototypes -Wno-sign-conversion)
endif()
if(LOTMASTER_WERROR)
    add_compile_options(-Werror)
endif()

add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(LOTMASTER_SANITIZE)
    set(_sanitize "-fsanitize=${LOTMASTER_SANITIZE}" -fno-sanitize-recover=all)
    add_compile_options(${_sanitize} -fno-omit-frame-pointer)
    add_link_options(${_sanitize})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The checks that are woven in hide from g++ where a variable was set.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()
