# Compiler settings shared by every target of ours.

option(INKWRIGHT_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_library(inkwright_options INTERFACE)
target_include_directories(inkwright_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(inkwright_options INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Werror
  # Colour arithmetic is exact to the bit in single precision: a fused
  # multiply-add would round once where the result asks for two roundings.
  -ffp-contract=off)

if(INKWRIGHT_SANITIZE)
  target_compile_options(inkwright_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(inkwright_options INTERFACE -fsanitize=address,undefined)
endif()
