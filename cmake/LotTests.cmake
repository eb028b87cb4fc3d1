# SPDX-License-Identifier: GPL-3.0-or-later
# The tests: one program a floor, the golden cases run through the real lotcalc, and the checks of the tree itself.

find_package(GTest CONFIG REQUIRED)
include(GoogleTest)

# What tests share. It may use everything there is; a test includes it as "support/...".
file(GLOB support CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/support/*.cpp")
if(support)
    add_library(lot_test_support STATIC ${support})
    set(scope PUBLIC)
else()
    add_library(lot_test_support INTERFACE)
    set(scope INTERFACE)
endif()
target_include_directories(lot_test_support ${scope} "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(lot_test_support ${scope} lot_app GTest::gtest)
target_compile_definitions(lot_test_support ${scope}
    LOTMASTER_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    LOTMASTER_EXAMPLES="${PROJECT_SOURCE_DIR}/examples"
    LOTMASTER_REPORTS="${PROJECT_SOURCE_DIR}/share")

# The main of tests that need widgets.
add_library(lot_qt_main OBJECT "${PROJECT_SOURCE_DIR}/tests/support/qt/lotQtMain.cpp")
target_link_libraries(lot_qt_main PUBLIC GTest::gtest Qt6::Widgets Qt6::Test)

foreach(floor IN ITEMS common engine finance model sensitivity persistence reporting app editing reportengine tool widgets shell)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/${floor}/*.cpp")
    if(NOT sources)
        continue()
    endif()
    add_executable(test_${floor} ${sources})
    if(floor MATCHES "^(reportengine|widgets|shell)$")
        set(main lot_qt_main)
        set(environment ENVIRONMENT QT_QPA_PLATFORM=offscreen)
    else()
        set(main GTest::gtest_main)
        set(environment)
    endif()
    target_link_libraries(test_${floor} PRIVATE lot_test_support lot_${floor} ${main})
    set_target_properties(test_${floor} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
    gtest_discover_tests(test_${floor} TEST_PREFIX "${floor}." DISCOVERY_MODE PRE_TEST
        PROPERTIES LABELS ${floor} TIMEOUT 300 ${environment})
endforeach()

if(TARGET lotcalc)
    file(GLOB cases CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/golden/*.test")
    foreach(case IN LISTS cases)
        cmake_path(GET case STEM LAST_ONLY stem)
        add_test(NAME golden.${stem} COMMAND "${PROJECT_SOURCE_DIR}/scripts/golden" $<TARGET_FILE:lotcalc> "${case}")
        set_tests_properties(golden.${stem} PROPERTIES LABELS golden TIMEOUT 120)
    endforeach()
    add_test(NAME check.completeness COMMAND "${PROJECT_SOURCE_DIR}/scripts/check-completeness" $<TARGET_FILE:lotcalc>)
    set_tests_properties(check.completeness PROPERTIES LABELS check)
endif()

add_test(NAME check.includes COMMAND "${PROJECT_SOURCE_DIR}/scripts/check-includes")
set_tests_properties(check.includes PROPERTIES LABELS check)
