# Reading the headers of others takes more than half of a build with clang. With g++ 12 this saves
# about 15 % where tests are compiled and next to nothing elsewhere, so there only the tests have it,
# and clang-tidy gets the commands of the program without.
#
# None of our own headers is in here: warnings about what a precompiled header includes are lost.
# A build without this shows that each file includes what it needs.
option(TALMO_PRECOMPILED_HEADERS "Read the headers of others once" OFF)
if(TALMO_PRECOMPILED_HEADERS)
  # One precompiled header serves only what is compiled with the same options.
  add_compile_options(-fPIC -pthread)
  # A compiler cache knows a precompiled header by its content.
  add_compile_options(
    "$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>"
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  # GLib has fields that are named like Qt's keywords.
  add_compile_definitions(QT_NO_KEYWORDS)
endif()

function(talmo_precompile_headers name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;LIBRARIES")
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} talmo_warnings)
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# Lets the programs and libraries below a folder use the headers that fit what they link. Modules have
# options of their own.
function(talmo_use_precompiled_headers folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(NOT type MATCHES "^((STATIC|OBJECT)_LIBRARY|EXECUTABLE)$" OR target MATCHES "_headers$")
      continue()
    endif()
    get_target_property(libraries ${target} LINK_LIBRARIES)
    if("GTest::gtest" IN_LIST libraries)
      target_precompile_headers(${target} REUSE_FROM talmo_test_headers)
    elseif(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
      continue()
    elseif("Qt6::Widgets" IN_LIST libraries)
      target_precompile_headers(${target} REUSE_FROM talmo_toolkit_headers)
    else()
      target_precompile_headers(${target} REUSE_FROM talmo_standard_headers)
    endif()
  endforeach()
  get_property(children DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(child IN LISTS children)
    talmo_use_precompiled_headers(${child})
  endforeach()
endfunction()

# To be called when every target is there.
function(talmo_share_precompiled_headers)
  set(standard
    <algorithm> <array> <atomic> <charconv> <chrono> <condition_variable> <cstdint> <cstdlib>
    <deque> <filesystem> <fstream> <functional> <map> <memory> <mutex> <optional> <set> <span>
    <sstream> <stdexcept> <string> <string_view> <system_error> <thread> <utility> <variant>
    <vector>)
  talmo_precompile_headers(talmo_standard_headers HEADERS ${standard})
  if(TARGET talmo_linux)
    find_package(Qt6 REQUIRED COMPONENTS Widgets)
    talmo_precompile_headers(talmo_toolkit_headers
      HEADERS ${standard} <QApplication> <QColor> <QEvent> <QImage> <QPainter> <QString> <QWidget>
      LIBRARIES Qt6::Widgets)
  endif()
  if(TALMO_BUILD_TESTS)
    find_package(GTest REQUIRED)
    talmo_precompile_headers(talmo_test_headers
      HEADERS ${standard} <gmock/gmock.h> <gtest/gtest.h>
      LIBRARIES GTest::gmock GTest::gtest)
  endif()
  talmo_use_precompiled_headers(${PROJECT_SOURCE_DIR})
endfunction()
