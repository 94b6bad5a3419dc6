# SPDX-License-Identifier: GPL-3.0-or-later
# How every folder of the system is built: warnings are errors, the finished program is one folder
# that can be carried away, and each folder's tests are one executable labelled with its name.

set(DORVANE_FOLDER "${CMAKE_BINARY_DIR}/dorvane")

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps in std::string's operator+ that are not there (GCC bug 105651).
  add_compile_options(-Wno-restrict)
endif()
if(DORVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(DORVANE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(DORVANE_ODR)
  add_compile_options(-O0 -flto)
endif()

# dorvane_room(NAME USES libs...): the logic of one folder as a static library dorvane_NAME.
function(dorvane_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(dorvane_${name} STATIC ${ROOM_SOURCES})
  target_include_directories(dorvane_${name} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(dorvane_${name} PUBLIC ${ROOM_USES})
endfunction()

# dorvane_screens(NAME SOURCES ... USES ...): the screens of one folder as a static library
# dorvane_NAME_screens. A form frmX.ui stands beside its class.
function(dorvane_screens name)
  cmake_parse_arguments(SCREENS "" "" "SOURCES;USES" ${ARGN})
  add_library(dorvane_${name}_screens STATIC ${SCREENS_SOURCES})
  set_target_properties(dorvane_${name}_screens PROPERTIES AUTOMOC ON AUTOUIC ON)
  target_include_directories(dorvane_${name}_screens PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(dorvane_${name}_screens PUBLIC dorvane_${name} ${SCREENS_USES} Qt6::Widgets)
endfunction()

# dorvane_program(NAME FILE SOURCES ... USES ...): one outside program, built under its DOS-style file
# name into Programs/, where the system looks for it on every platform.
function(dorvane_program name file)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${PROGRAM_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${PROGRAM_USES})
  set_target_properties(${name} PROPERTIES
    OUTPUT_NAME "${file}" SUFFIX "" RUNTIME_OUTPUT_DIRECTORY "${DORVANE_FOLDER}/Programs")
endfunction()

# Tests are compiled often and run once: without optimisation, and with the headers that nearly all of them
# include compiled once (tests/support).
function(dorvane_compile_tests target headers)
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O0>)
  target_precompile_headers(${target} REUSE_FROM ${headers})
endfunction()

# dorvane_tests(NAME [OPTIMISED] SOURCES ... USES ...): the tests of one folder, each known to CTest by itself.
# OPTIMISED is for tests that compute much themselves.
function(dorvane_tests name)
  cmake_parse_arguments(TESTS "OPTIMISED" "" "SOURCES;USES" ${ARGN})
  add_executable(test_${name} ${TESTS_SOURCES})
  target_include_directories(test_${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(test_${name} PRIVATE ${TESTS_USES} GTest::gmock_main)
  if(NOT TESTS_OPTIMISED)
    dorvane_compile_tests(test_${name} dorvane_test_headers)
  endif()
  gtest_discover_tests(test_${name} TEST_PREFIX "${name}." PROPERTIES LABELS "${name}" TIMEOUT 300
    DISCOVERY_TIMEOUT 60)
endfunction()

# dorvane_screen_tests(NAME SOURCES ... USES ...): the tests of one folder's screens, as test_NAME_screens, on
# a platform without a display.
function(dorvane_screen_tests name)
  cmake_parse_arguments(TESTS "" "" "SOURCES;USES" ${ARGN})
  add_executable(test_${name}_screens ${TESTS_SOURCES})
  target_include_directories(test_${name}_screens PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(test_${name}_screens PRIVATE ${TESTS_USES} dorvane_screen_test_main)
  dorvane_compile_tests(test_${name}_screens dorvane_screen_test_headers)
  # What the screens show comes from the program folder.
  add_dependencies(test_${name}_screens dorvane_site)
  target_compile_definitions(test_${name}_screens PRIVATE DORVANE_FOLDER="${DORVANE_FOLDER}")
  gtest_discover_tests(test_${name}_screens TEST_PREFIX "${name}_screens." DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${name}" TIMEOUT 300 ENVIRONMENT "${DORVANE_SCREEN_TEST_ENVIRONMENT}")
endfunction()
