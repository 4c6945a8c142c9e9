# What nearly every file includes anyway. A file still includes what it uses.
set(QUILLON_STANDARD_HEADERS
    <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <set> <string> <string_view> <unordered_map>
    <utility> <variant> <vector>)

# One library a folder under src/. The names after LINK are the folders that this one may use: these lines are the
# architecture, and tests/architecture reads them.
function(quillon_library name)
  cmake_parse_arguments(arg "" "" "LINK;LIBRARIES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    return()
  endif()
  add_library(quillon_${name} STATIC ${sources})
  target_include_directories(quillon_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  list(TRANSFORM arg_LINK PREPEND quillon_)
  target_link_libraries(quillon_${name} PUBLIC ${arg_LINK} ${arg_LIBRARIES})
  # The standard headers are compiled once for all folders; the windows have a precompiled header of their own.
  if(name STREQUAL "core")
    target_precompile_headers(quillon_core PRIVATE ${QUILLON_STANDARD_HEADERS})
  elseif(NOT name STREQUAL "ui")
    target_precompile_headers(quillon_${name} REUSE_FROM quillon_core)
  endif()
endfunction()

# A program of tests from all files of a folder under tests/.
function(quillon_test folder)
  cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${folder} ${sources})
  list(TRANSFORM arg_LINK PREPEND quillon_)
  target_link_libraries(test_${folder} PRIVATE ${arg_LINK} quillon_testkit GTest::gmock GTest::gtest_main)
  target_precompile_headers(test_${folder} REUSE_FROM quillon_testkit)
  # Only where it is used, so that a compiler cache serves every checkout.
  foreach(source ${sources})
    file(STRINGS ${source} uses REGEX QUILLON_SOURCE_DIR)
    if(uses)
      set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS QUILLON_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    endif()
  endforeach()
  gtest_discover_tests(test_${folder} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
