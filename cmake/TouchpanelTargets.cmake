# The compile rules that every target obeys, and the functions that declare one target per folder. Includes are
# written from src/ (in tests from tests/, too); tools/check-style holds each folder's includes against what its
# target says it uses.

add_library(touchpanel_rules INTERFACE)
target_compile_features(touchpanel_rules INTERFACE cxx_std_20)
target_include_directories(touchpanel_rules INTERFACE ${PROJECT_SOURCE_DIR}/src)
# The solver's result is defined to the bit: no fused multiply-add may replace a rounded product.
target_compile_options(touchpanel_rules INTERFACE -ffp-contract=off -Wall -Wextra -Wconversion -Wshadow
                       $<$<BOOL:${TOUCHPANEL_WERROR}>:-Werror>)
if(TOUCHPANEL_SANITIZE)
  target_compile_options(touchpanel_rules INTERFACE -fsanitize=${TOUCHPANEL_SANITIZE}
                         -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(touchpanel_rules INTERFACE -fsanitize=${TOUCHPANEL_SANITIZE})
endif()
find_program(TOUCHPANEL_LLD ld.lld)
if(TOUCHPANEL_LLD)
  target_link_options(touchpanel_rules INTERFACE -fuse-ld=lld)
endif()
find_program(TOUCHPANEL_CCACHE ccache)
if(TOUCHPANEL_CCACHE)
  # Precompiled headers: without this the cache would take none of the files that use one.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${TOUCHPANEL_CCACHE})
  add_compile_options(-fpch-preprocess)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# touchpanel_library(FOLDER [SOURCES file...] [USES target...]): the static library of src/FOLDER, called
# touchpanel_FOLDER with slashes turned to underscores. Without sources it is a header library.
function(touchpanel_library folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  string(REPLACE "/" "_" name touchpanel_${folder})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    set(scope PUBLIC)
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(${name} ${scope} touchpanel_rules ${ARG_USES})
endfunction()

# touchpanel_tests(NAME FOLDERS folder... USES target... [ENVIRONMENT VAR=VALUE...]): the GoogleTest program NAME_tests of
# all sources in these folders, and a CTest entry NAME.
function(touchpanel_tests name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;USES;ENVIRONMENT" ${ARGN})
  list(TRANSFORM ARG_FOLDERS APPEND /*Test.cpp)
  file(GLOB sources CONFIGURE_DEPENDS ${ARG_FOLDERS})
  add_executable(${name}_tests ${sources})
  target_link_libraries(${name}_tests PRIVATE touchpanel_rules GTest::gmock ${ARG_USES})
  target_include_directories(${name}_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_precompile_headers(${name}_tests PRIVATE <gmock/gmock.h>)
  add_test(NAME ${name} COMMAND ${name}_tests)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()

# touchpanel_benchmark(NAME SOURCES file... USES target...): one Google Benchmark program, run by hand.
function(touchpanel_benchmark name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name}_benchmark ${ARG_SOURCES})
  target_link_libraries(${name}_benchmark PRIVATE ${ARG_USES} benchmark::benchmark_main)
endfunction()
