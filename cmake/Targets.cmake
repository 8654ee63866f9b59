# The two libraries. Sparlow::core needs a C++20 compiler and threads, nothing else; Sparlow::sparlow
# adds graphs, views and windows, and links Qt privately.

find_package(Threads REQUIRED)

add_library(sparlow-options INTERFACE)
target_compile_options(sparlow-options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                       -Wnon-virtual-dtor $<$<BOOL:${SPARLOW_WERROR}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies inside std::string's own operator+ (GCC bug 105651).
  target_compile_options(sparlow-options INTERFACE -Wno-restrict)
endif()

# What every library of this project has in common; the folders below sparlow/ give the sources.
function(sparlow_library name)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:sparlow-options>)
  # The same bits whatever a program is built with: statistics without fused products, NaN as NaN.
  target_compile_options(${name} PRIVATE -fno-fast-math -ffp-contract=off)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                             $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

add_library(sparlow-core STATIC)
add_library(Sparlow::core ALIAS sparlow-core)
set_target_properties(sparlow-core PROPERTIES EXPORT_NAME core)
target_link_libraries(sparlow-core PUBLIC Threads::Threads)
sparlow_library(sparlow-core)
if(SPARLOW_PLAIN_VECTORS)
  # Public: a header turns on it, which all parts of a program must read the same way.
  target_compile_definitions(sparlow-core PUBLIC SPARLOW_PLAIN_VECTORS)
endif()
if(SPARLOW_SANITIZE)
  # Public: a program links the sanitizers' run-time library when one of its parts was built for them.
  target_compile_options(sparlow-core PUBLIC -fsanitize=${SPARLOW_SANITIZE} -fno-omit-frame-pointer
                         -fno-sanitize-recover=all)
  target_link_options(sparlow-core PUBLIC -fsanitize=${SPARLOW_SANITIZE})
endif()

if(NOT SPARLOW_CORE_ONLY)
  # The windowed half without a window system: graphs and views over abstract peers. It builds
  # without Qt, so that its tests run with trivial peers and under ThreadSanitizer.
  add_library(sparlow-graphs STATIC)
  set_target_properties(sparlow-graphs PROPERTIES EXPORT_NAME graphs)
  target_link_libraries(sparlow-graphs PUBLIC sparlow-core)
  sparlow_library(sparlow-graphs)
endif()

add_subdirectory(sparlow)
