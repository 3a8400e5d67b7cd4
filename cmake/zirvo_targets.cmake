# The compile rules that all targets share, and one helper for each kind of target.

add_library(zirvo_rules INTERFACE)
target_include_directories(zirvo_rules INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(MSVC)
  target_compile_options(zirvo_rules INTERFACE /W4 /WX /utf-8 /permissive-)
else()
  target_compile_options(zirvo_rules INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()
if(WIN32)
  target_compile_definitions(zirvo_rules INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
  if(MINGW)
    # A program stands alone, except one with Qt: Qt's libraries bring the compiler's, and there must be one of each.
    target_link_options(zirvo_rules INTERFACE $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ZIRVO_USES_QT>>>:-static>)
    target_link_options(zirvo_rules INTERFACE -Wl,--no-insert-timestamp)  # the same source gives the same bytes
  endif()
endif()
if(ZIRVO_FUZZ_COVERAGE)
  target_compile_options(zirvo_rules INTERFACE -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(zirvo_rules INTERFACE -fprofile-instr-generate)
elseif(ZIRVO_SANITIZE)
  target_compile_options(zirvo_rules INTERFACE -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(zirvo_rules INTERFACE -fsanitize=address,undefined)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Behind the sanitizers' own code g++ 12 sees uninitialised values in its std::function where there are none; the
    # release build keeps the warning.
    target_compile_options(zirvo_rules INTERFACE -Wno-maybe-uninitialized)
  else()
    target_compile_definitions(zirvo_rules INTERFACE __SANITIZE_ADDRESS__)  # as g++ tells of it
  endif()
endif()
if(ZIRVO_SANITIZE)
  # Little optimising, lines alone for the debugger: the tests run as fast, and all of it builds in half the time. Our own
  # asserts and those of the standard library are on.
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1")
  target_compile_definitions(zirvo_rules INTERFACE _GLIBCXX_ASSERTIONS)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # Classes of two systems have members that one of them alone looks at.
    target_compile_options(zirvo_rules INTERFACE -Wno-unused-private-field)
  endif()
endif()
if(ZIRVO_FUZZ)
  # Each edge of the code counts itself, which is how a fuzzer sees that a file is a new one. Set for all that is compiled,
  # so that all fuzzers share one build of the libraries, and the tests with them.
  target_compile_options(zirvo_rules INTERFACE -fsanitize=fuzzer-no-link)
  set(ZIRVO_COVERAGE_OF_FUZZERS inline-8bit-counters,pc-table,indirect-calls,trace-cmp)  # to take it from what none runs
endif()

# zirvo_library(NAME [SHAREABLE] SOURCES file... [LINK target...]): one library of a folder of src. SHAREABLE: it also
# goes into a shared library, as the Python module is one, so its code must run wherever it is loaded; a function is still
# taken for the one that stands in its own file, which is what makes it as fast as in a program.
function(zirvo_library name)
  cmake_parse_arguments(ARG "SHAREABLE" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC zirvo_rules ${ARG_LINK})
  if(ARG_SHAREABLE AND UNIX)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${name} PRIVATE -fno-semantic-interposition)
  endif()
endfunction()

# zirvo_common_header(NAME HEADER): a large header that every file of a library includes, itself or through others, so that it
# hides of none what it lacks. Compiled once; units have it once as they are.
function(zirvo_common_header name header)
  if(NOT CMAKE_UNITY_BUILD)
    target_precompile_headers(${name} PRIVATE ${header})
  endif()
endfunction()

# zirvo_precompiled(NAME [LINK target...]): the headers that nearly every test includes, compiled once. Test programs that
# compile with the same flags share it; Qt's add theirs, so they have one of their own.
function(zirvo_precompiled name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  add_library(${name} OBJECT ${CMAKE_SOURCE_DIR}/tests/precompiled.cpp)
  target_link_libraries(${name} PRIVATE zirvo_rules ${ARG_LINK} GTest::gtest)
  zirvo_test_options(${name})
  target_precompile_headers(${name} PRIVATE <algorithm> <cmath> <filesystem> <fstream> <functional> <memory> <optional>
    <sstream> <string> <string_view> <vector> <gtest/gtest.h>)
endfunction()

# What all test programs compile with.
function(zirvo_test_options name)
  if(NOT MSVC)
    target_compile_options(${name} PRIVATE -O0)  # what they test keeps the preset's own; tests only compile sooner
  endif()
  if(ZIRVO_FUZZ)  # no fuzzer looks at them
    target_compile_options(${name} PRIVATE -fno-sanitize-coverage=${ZIRVO_COVERAGE_OF_FUZZERS})
  endif()
endfunction()

set(ZIRVO_DRIVE)
if(CMAKE_CROSSCOMPILING)
  set(ZIRVO_DRIVE Z:)  # as wine calls this machine's root
endif()

# zirvo_test(NAME SOURCES file... [LINK target...]): one test program, each of its tests known to ctest.
function(zirvo_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  if(CMAKE_CROSSCOMPILING)
    zirvo_posix_only(sources names)
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
    list(TRANSFORM sources REPLACE "^${folder}/" "")
    list(REMOVE_ITEM ARG_SOURCES ${sources})
  endif()
  set(first)
  if(TARGET zirvo_optimised)
    set(first $<TARGET_OBJECTS:zirvo_optimised>)
  endif()
  add_executable(${name} ${first} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE zirvo_rules ${ARG_LINK} GTest::gtest GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  zirvo_test_options(${name})
  if(ARG_LINK MATCHES "qt")
    target_precompile_headers(${name} REUSE_FROM zirvo_precompiled_qt)
  else()
    target_precompile_headers(${name} REUSE_FROM zirvo_precompiled)
  endif()
  target_compile_definitions(${name} PRIVATE
    ZIRVO_TEST_DATA="${ZIRVO_DRIVE}${CMAKE_SOURCE_DIR}/tests/data"
    ZIRVO_SAMPLES="${ZIRVO_DRIVE}${CMAKE_SOURCE_DIR}/samples"
    ZIRVO_BIN="${ZIRVO_DRIVE}${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  if(CMAKE_CROSSCOMPILING)
    zirvo_add_windows_tests(${name})
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
  endif()
endfunction()

# zirvo_posix_only(SOURCES NAMES): what tests/windows/posix_only.txt names, source files and tests.
function(zirvo_posix_only sources names)
  set(list ${CMAKE_SOURCE_DIR}/tests/windows/posix_only.txt)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} lines REGEX "^[^#]")
  set(files ${lines})
  list(FILTER files INCLUDE REGEX "\\.cpp$")
  list(FILTER lines EXCLUDE REGEX "\\.cpp$")
  set(${sources} ${files} PARENT_SCOPE)
  set(${names} ${lines} PARENT_SCOPE)
endfunction()

# zirvo_add_windows_tests(NAME): a test program as one test, since each start of wine takes as long as many tests; without
# those that tests/windows/posix_only.txt names.
function(zirvo_add_windows_tests name)
  target_include_directories(${name} BEFORE PRIVATE ${CMAKE_SOURCE_DIR}/tests/windows)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    zirvo_posix_only(sources names)
    list(JOIN names ":" names)
    add_test(NAME ${name}
      COMMAND ${CMAKE_SOURCE_DIR}/tests/windows/in_session ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${name}>
              --gtest_brief=1 --gtest_filter=-${names})
    set_tests_properties(${name} PROPERTIES TIMEOUT 900 RESOURCE_LOCK wine FIXTURES_REQUIRED wine_session)
  endif()
endfunction()

# zirvo_copies(NAME FOLDER file...): a target that copies files of this folder to FOLDER of the programs' folder ("." for
# that folder itself), for what belongs beside the programs.
function(zirvo_copies name folder)
  set(copies)
  foreach(file IN LISTS ARGN)
    set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${folder}/${file})
    add_custom_command(OUTPUT ${copy}
      COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${copy}
      DEPENDS ${file})
    list(APPEND copies ${copy})
  endforeach()
  add_custom_target(${name} ALL DEPENDS ${copies})
  if(TARGET zirvo)
    add_dependencies(zirvo ${name})
  endif()
endfunction()
