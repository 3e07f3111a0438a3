# Shared settings and the few functions that every folder's CMakeLists.txt is written in.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")

option(VELMORA_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

# Descriptions name only the members that differ from the default.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror
                    -Wno-missing-field-initializers)
# Fewer symbols for the loader to look up at start: calls within a library stay there, unused libraries stay out.
add_link_options(-Wl,--as-needed -Wl,-Bsymbolic-functions -Wl,-O1)
add_compile_definitions(QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING)
include_directories(${CMAKE_SOURCE_DIR})
if(VELMORA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# One precompiled header without windows and one with them; every target reuses one of the two.
add_library(pch_core STATIC ${CMAKE_SOURCE_DIR}/cmake/pch_core.cpp)
add_library(pch_gui STATIC ${CMAKE_SOURCE_DIR}/cmake/pch_gui.cpp)

target_link_libraries(pch_core PUBLIC Qt6::Core Qt6::Sql)
target_link_libraries(pch_gui PUBLIC Qt6::Widgets Qt6::Sql Qt6::PrintSupport)
target_precompile_headers(pch_core PRIVATE <QtCore> <QtSql> <algorithm> <functional> <memory> <optional> <string>
                          <unordered_map> <vector>)
target_precompile_headers(pch_gui PRIVATE <QtWidgets> <QtSql> <algorithm> <functional> <memory> <optional> <string>
                          <unordered_map> <vector>)

# The sources of tests take most of a build: with a precompiled GoogleTest, without optimisation, and without the
# sanitizers, which look at the code under test.
set(VELMORA_TEST_OPTIONS -O0 -fno-sanitize=all)
add_library(pch_test STATIC ${CMAKE_SOURCE_DIR}/cmake/pch_test.cpp)
target_compile_options(pch_test PRIVATE ${VELMORA_TEST_OPTIONS})
target_link_libraries(pch_test PUBLIC Qt6::Widgets Qt6::Sql Qt6::PrintSupport GTest::gtest)
target_precompile_headers(pch_test PRIVATE <QtWidgets> <QtSql> <gtest/gtest.h> <algorithm> <functional> <memory>
                          <optional> <string> <unordered_map> <vector>)

# All sources of the calling folder.
macro(_velmora_sources out)
  file(GLOB ${out} CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
       ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
endmacro()

# The generators of Qt run for a target that has something for them; an empty run costs a compilation.
function(_velmora_generators target)
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    get_filename_component(path ${source} ABSOLUTE)
    if(path MATCHES "\\.qrc$")
      set_target_properties(${target} PROPERTIES AUTORCC ON)
    elseif(path MATCHES "\\.(h|cpp)$")
      file(STRINGS ${path} object REGEX "Q_OBJECT" LIMIT_COUNT 1)
      if(object)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
      endif()
    endif()
  endforeach()
endfunction()

# What takes long in a build with sanitizers are the templates of Qt, anew for each source: there several sources
# are compiled as one. Other builds keep each apart, which shows a missing include.
function(_velmora_together target)
  get_target_property(type ${target} TYPE)
  if(VELMORA_SANITIZE AND type STREQUAL "SHARED_LIBRARY")
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
  endif()
endfunction()

function(_velmora_finish target gui)
  set_target_properties(${target} PROPERTIES DEFINE_SYMBOL "")
  _velmora_together(${target})
  _velmora_generators(${target})
  if(gui)
    target_link_libraries(${target} PUBLIC Qt6::Widgets Qt6::PrintSupport Qt6::Sql)
    target_precompile_headers(${target} REUSE_FROM pch_gui)
  else()
    target_link_libraries(${target} PUBLIC Qt6::Core Qt6::Sql)
    target_precompile_headers(${target} REUSE_FROM pch_core)
  endif()
endfunction()

# Every catalogue of texts in this folder (name.ts) goes into the target, compiled, as the resource /i18n/name.qm.
function(_velmora_catalogues target)
  file(GLOB catalogues CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.ts)
  foreach(catalogue ${catalogues})
    get_filename_component(name ${catalogue} NAME_WE)
    set(compiled ${CMAKE_CURRENT_BINARY_DIR}/${name}.qm)
    add_custom_command(OUTPUT ${compiled} DEPENDS ${catalogue} VERBATIM
                       COMMAND ${LRELEASE} -silent ${catalogue} -qm ${compiled})
    qt_add_resources(${target} ${name} PREFIX /i18n BASE ${CMAKE_CURRENT_BINARY_DIR} FILES ${compiled})
  endforeach()
endfunction()

# velmora_library(NAME [GUI] [LINK libs...]): a shared library of all sources in this folder, and of its catalogues.
function(velmora_library name)
  cmake_parse_arguments(A "GUI" "" "LINK;SOURCES" ${ARGN})
  _velmora_sources(sources)
  add_library(${name} SHARED ${sources} ${A_SOURCES})
  target_link_libraries(${name} PUBLIC ${A_LINK})
  _velmora_finish(${name} ${A_GUI})
  _velmora_catalogues(${name})
  install(TARGETS ${name} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

# velmora_program(NAME [GUI] [LINK libs...] [SOURCES files...]): a program of the given sources, or of the folder's.
function(velmora_program name)
  cmake_parse_arguments(A "GUI" "" "LINK;SOURCES" ${ARGN})
  if(NOT A_SOURCES)
    _velmora_sources(A_SOURCES)
  endif()
  add_executable(${name} ${A_SOURCES})
  target_link_libraries(${name} PRIVATE ${A_LINK})
  add_dependencies(${name} toolkit_postgresql) # loaded at run time
  _velmora_finish(${name} ${A_GUI})
endfunction()

# velmora_test(NAME [TIMEOUT seconds] LINK libs...): a test program of all sources in this folder.
function(velmora_test name)
  cmake_parse_arguments(A "" "TIMEOUT" "LINK" ${ARGN})
  _velmora_sources(sources)
  add_executable(${name} ${sources})
  _velmora_generators(${name})
  target_link_libraries(${name} PRIVATE ${A_LINK} test_support GTest::gtest Qt6::Widgets Qt6::PrintSupport Qt6::Sql)
  add_dependencies(${name} toolkit_postgresql)
  target_compile_options(${name} PRIVATE ${VELMORA_TEST_OPTIONS})
  target_precompile_headers(${name} REUSE_FROM pch_test)
  if(NOT A_TIMEOUT)
    set(A_TIMEOUT 600)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  # The sanitizer guesses at thread-local storage of libraries loaded at run time, and falls over its own guess.
  set_tests_properties(${name} PROPERTIES TIMEOUT ${A_TIMEOUT} FIXTURES_REQUIRED postgres ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=intercept_tls_get_addr=0;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0;VELMORA_BUILD_DIR=${CMAKE_BINARY_DIR};VELMORA_SOURCE_DIR=${CMAKE_SOURCE_DIR}")
endfunction()
