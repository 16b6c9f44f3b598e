# Compiler settings shared by every target of ours.

option(INKWRIGHT_QT "Build the program for this system, with the toolkit's windows" OFF)

# With the headless port there is nothing but tests to build. The trees of a program must build on a machine that has no
# package of the tests.
set(tests_by_default ON)
if(WIN32 OR INKWRIGHT_QT)
  set(tests_by_default OFF)
endif()
option(INKWRIGHT_TESTS "Build tests, benchmarks and probes as well" ${tests_by_default})
option(INKWRIGHT_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_library(inkwright_options INTERFACE)
target_include_directories(inkwright_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(inkwright_options INTERFACE
  # Another compiler's further complaints must not stop the fuzzers.
  $<$<CXX_COMPILER_ID:GNU>:-Wall;-Wextra;-Wshadow;-Wconversion;-Wnon-virtual-dtor;-Werror>
  # Colour arithmetic is exact to the bit in single precision: a fused
  # multiply-add would round once where the result asks for two roundings.
  -ffp-contract=off)

if(INKWRIGHT_SANITIZE)
  target_compile_options(inkwright_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(inkwright_options INTERFACE -fsanitize=address,undefined)
endif()
