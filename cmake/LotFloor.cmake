# SPDX-License-Identifier: GPL-3.0-or-later
# Targets of the tree. A folder without sources yet is passed over, so the tree configures at any stage.

# lot_add_floor(<name> [QT] [DEPS floor...] [LIBS target...] [PUBLIC_LIBS target...])
# The static library lot_<name> from all *.cpp below src/<name>, its rooms included, standing on the floors in DEPS and on nothing above it.
# LIBS are known to this floor alone. QT: its classes may have signals. A floor without sources only passes on what
# lies below.
function(lot_add_floor name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "DEPS;LIBS;PUBLIC_LIBS")
    set(target lot_${name})
    set(deps ${arg_DEPS})
    list(TRANSFORM deps PREPEND lot_)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/${name}/*.cpp")
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/${name}/*.h")
    if(sources)
        add_library(${target} STATIC ${sources} ${headers})
        target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/src")
        target_link_libraries(${target} PUBLIC ${deps} ${arg_PUBLIC_LIBS} PRIVATE ${arg_LIBS})
        if(arg_QT)
            set_target_properties(${target} PROPERTIES AUTOMOC ON)
        endif()
    else()
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE "${PROJECT_SOURCE_DIR}/src")
        target_link_libraries(${target} INTERFACE ${deps} ${arg_PUBLIC_LIBS})
    endif()
    if(LOTMASTER_HEADER_CHECK AND headers)
        lot_check_headers(${name} HEADERS ${headers} LIBS ${arg_LIBS})
    endif()
endfunction()

# lot_check_headers(<floor> HEADERS file... [LIBS target...]): compiles each header alone, so that each includes
# what it uses.
function(lot_check_headers floor)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;LIBS")
    foreach(header IN LISTS arg_HEADERS)
        cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${PROJECT_SOURCE_DIR}/src" OUTPUT_VARIABLE name)
        cmake_path(REMOVE_EXTENSION name LAST_ONLY)
        set(unit "${PROJECT_BINARY_DIR}/headers/${name}.cpp")
        file(GENERATE OUTPUT "${unit}" CONTENT "#include \"${name}.h\"\n")
        list(APPEND units "${unit}")
    endforeach()
    add_library(lot_${floor}_headers OBJECT ${units})
    target_link_libraries(lot_${floor}_headers PRIVATE lot_${floor} ${arg_LIBS})
endfunction()

# lot_add_icons(<floor>): share/icons/*.svg, as the resources :/icons/*.svg of that floor.
function(lot_add_icons floor)
    file(GLOB icons CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/share/icons/*.svg")
    qt_add_resources(lot_${floor} icons PREFIX /icons BASE "${PROJECT_SOURCE_DIR}/share/icons" FILES ${icons})
endfunction()

# lot_add_guide(<floor>): docs/user-guide.md and the pictures in docs/images, as the resources :/help/* of that floor.
function(lot_add_guide floor)
    file(GLOB pictures CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/images/*.png")
    qt_add_resources(lot_${floor} guide PREFIX /help BASE "${PROJECT_SOURCE_DIR}/docs"
        FILES "${PROJECT_SOURCE_DIR}/docs/user-guide.md" ${pictures})
endfunction()

# lot_add_report_fonts(<floor>): the one family that reports are set in, as the resources :/fonts/*.ttf of that floor, so
# that a report looks the same wherever it is made.
function(lot_add_report_fonts floor)
    find_path(LOTMASTER_REPORT_FONTS OpenSans-Regular.ttf PATHS /usr/share/fonts/truetype/open-sans NO_DEFAULT_PATH REQUIRED
        DOC "Folder of the Open Sans fonts")
    foreach(style IN ITEMS Regular Semibold Italic SemiboldItalic)
        list(APPEND fonts "${LOTMASTER_REPORT_FONTS}/OpenSans-${style}.ttf")
    endforeach()
    qt_add_resources(lot_${floor} fonts PREFIX /fonts BASE "${LOTMASTER_REPORT_FONTS}" FILES ${fonts})
endfunction()

# lot_define(<floor> definition...): for this floor and all above it.
function(lot_define floor)
    get_target_property(type lot_${floor} TYPE)
    if(type STREQUAL "INTERFACE_LIBRARY")
        target_compile_definitions(lot_${floor} INTERFACE ${ARGN})
    else()
        target_compile_definitions(lot_${floor} PUBLIC ${ARGN})
    endif()
endfunction()

# lot_add_executable(<name> FLOOR floor): apps/<name>/main.cpp, built as apps/<name> in the build folder.
function(lot_add_executable name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FLOOR" "")
    file(GLOB main CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/apps/${name}/main.cpp")
    if(NOT main)
        return()
    endif()
    add_executable(${name} ${main})
    target_link_libraries(${name} PRIVATE lot_${arg_FLOOR})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/apps")
endfunction()

# lot_add_bench(<name> FOLDER folder FLOOR floor): *.cpp of that folder, built as bench/<name> in the build folder.
function(lot_add_bench name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER;FLOOR" "")
    file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${arg_FOLDER}/*.cpp")
    find_package(benchmark CONFIG REQUIRED)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE lot_${arg_FLOOR} benchmark::benchmark)
    target_compile_definitions(${name} PRIVATE LOTMASTER_EXAMPLES="${PROJECT_SOURCE_DIR}/examples"
        LOTMASTER_REPORTS="${PROJECT_SOURCE_DIR}/share")
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bench")
endfunction()

# lot_add_fuzz(<name> FLOOR floor): fuzz/<name>.cpp, built as fuzz/<name> in the build folder. Its test runs the seeds
# in fuzz/corpus through once.
function(lot_add_fuzz name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FLOOR" "")
    file(GLOB source CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/fuzz/${name}.cpp")
    if(NOT source)
        return()
    endif()
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE lot_${arg_FLOOR})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzz")
    if(EXISTS "${PROJECT_SOURCE_DIR}/fuzz/corpus")
        add_test(NAME fuzz.corpus COMMAND ${name} -runs=0 "${PROJECT_SOURCE_DIR}/fuzz/corpus")
    endif()
endfunction()
