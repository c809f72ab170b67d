# How every target of the project is compiled: language, visibility, warnings, sanitizers, precompiled headers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers are cached only when their time stamps are not compared.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} ${CCACHE})
endif()

add_library(datamodels_options INTERFACE)
target_compile_definitions(datamodels_options INTERFACE QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS)
target_compile_options(datamodels_options INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Wshadow=local
                       -fpch-preprocess $<$<BOOL:${DATAMODELS_WERROR}>:-Werror>)
if(DATAMODELS_SANITIZE)
  # Global, so that the executables of the tests and of the consumer carry the run-time as well.
  add_compile_options(-fsanitize=${DATAMODELS_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${DATAMODELS_SANITIZE})
endif()

# datamodels_precompile(<target> <header>...): one precompiled header a target, of the headers that most of it reads.
function(datamodels_precompile target)
  target_precompile_headers(${target} PRIVATE ${ARGN})
endfunction()
