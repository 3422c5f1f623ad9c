# Every target of ours is built with the same warnings, and none of them is let pass.
add_library(keyscout_warnings INTERFACE)
target_compile_options(keyscout_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Wold-style-cast -Woverloaded-virtual -Werror)
# g++ 12 takes every optimized concatenation of a literal and a string for an overlap.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(keyscout_warnings INTERFACE -Wno-restrict)
endif()

if(KEYSCOUT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
