# Every target of ours is built with the same warnings, and none of them is let pass.
add_library(keyscout_warnings INTERFACE)
target_compile_options(keyscout_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wold-style-cast -Woverloaded-virtual -Werror
  # The interfaces of COM have no virtual destructors; the core is looked at on the other systems.
  $<$<NOT:$<BOOL:${WIN32}>>:-Wnon-virtual-dtor>)
# g++ 12 takes every optimized concatenation of a literal and a string for an overlap.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(keyscout_warnings INTERFACE -Wno-restrict)
endif()

if(KEYSCOUT_BUILD_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
if(KEYSCOUT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
